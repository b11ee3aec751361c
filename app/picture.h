// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QString>

class QLabel;
class QSvgRenderer;

// An SVG drawing scaled to the space it is given, keeping its proportions.
class SvgView : public QWidget {
    Q_OBJECT
public:
    explicit SvgView(const QString &resource, QWidget *parent = nullptr);
    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *e) override;

private:
    QSvgRenderer *renderer_;
};

// A framed picture of the pages: rich text, with a drawing where the picture has one. Its text is
// also its accessible name, so a screen reader reads what the pupil sees.
class Picture : public QFrame {
    Q_OBJECT
public:
    explicit Picture(QWidget *parent = nullptr);
    Picture(const QString &html, QWidget *parent = nullptr);

    void setText(const QString &html);
    void setDrawing(const QString &resource, const QString &description);
    QString plainText() const;
    QLabel *label() const { return label_; }

private:
    void updateAccessibleName();

    QLabel *label_;
    SvgView *drawing_ = nullptr;
    QString drawingDescription_;
};
