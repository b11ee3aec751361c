// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGroupBox>
#include <QRect>
#include <QSize>

#include <functional>

class QPushButton;

// Keeps a panel that is not part of the page's layout where place() puts it, as the page changes
// size and whenever the panel appears. Showing such a panel costs the page no new layout. A panel
// with `beneath` stays just below that one.
void placeOver(QWidget *page, QWidget *panel, std::function<QRect(const QRect &, QSize)> place,
               QWidget *beneath = nullptr);

// A framed panel that appears over a page, outside its layout: the exit frame and the page
// overview. It is filled in its own colour, its frame and title keep a margin from its edges,
// and when it appears it gives the keyboard focus to its harmless control, so that a pupil who
// works with the keyboard lands in it rather than on the covered page, and a stray Enter or
// Space does no harm.
class PagePanel : public QGroupBox {
public:
    QPushButton *harmlessControl() const { return harmless_; }

protected:
    PagePanel(const QString &title, const char *formName, QWidget *page);

    void setHarmlessControl(QPushButton *button);
    // A button of the panel, as tall as a finger needs.
    QPushButton *addButton(const QString &caption, const char *formName);
    // A plain area in one colour on the page, shown and hidden with the panel, just below it.
    QWidget *addBackdrop(const QColor &colour, const char *formName,
                         std::function<QRect(const QRect &, QSize)> place);
    // Centred over the page at its natural size, at least `minimumWidth` design units wide.
    QRect centredOver(const QRect &area, int minimumWidth) const;

    void paintEvent(QPaintEvent *e) override;
    bool event(QEvent *e) override;

private:
    static constexpr int kMargin = 6;
    QWidget *page_;
    QPushButton *harmless_ = nullptr;
};
