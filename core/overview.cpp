// SPDX-License-Identifier: GPL-3.0-or-later
#include "overview.h"

#include "theme.h"
#include "zoom.h"

#include <QLabel>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

namespace {

// A line of the page overview: a flat button whose caption starts at its left edge, like a line
// of text, with a little room around it.
class OverviewLine : public QPushButton {
public:
    OverviewLine(const QString &caption, QWidget *parent)
        : QPushButton(caption, parent) {
        setFlat(true);
        setCursor(Qt::PointingHandCursor);
    }

    QSize sizeHint() const override {
        const Zoom &zoom = Zoom::on(this);
        return {fontMetrics().horizontalAdvance(text()) + 2 * zoom.px(kPadding.width()),
                fontMetrics().height() + 2 * zoom.px(kPadding.height())};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text.clear();
        painter.drawControl(QStyle::CE_PushButton, option);
        const int padding = Zoom::on(this).px(kPadding.width());
        painter.drawItemText(rect().adjusted(padding, 0, -padding, 0),
                             Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text(),
                             QPalette::ButtonText);
    }

private:
    static constexpr QSize kPadding{8, 3};
};

} // namespace

Overview::Overview(QWidget *page, const QString &lineName)
    : PagePanel(QStringLiteral("Wo bin ich?"), "Frame2", page) {
    Zoom &z = Zoom::on(page);
    auto *layout = new QVBoxLayout(this);
    z.setMargins(layout, 14);
    z.setSpacing(layout, 2);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        lines[i] = new OverviewLine(Topics::overviewLine(static_cast<int>(i)), this);
        lines[i]->setObjectName(QStringLiteral("%1_%2").arg(lineName).arg(i));
        layout->addWidget(lines[i]);
    }
    note = new QLabel(QStringLiteral("(Durch Anklicken einer Zeile kannst du dorthin springen.)"),
                      this);
    note->setWordWrap(true);
    layout->addWidget(note);
    closeButton = addButton(QStringLiteral("Schließen"), "Command6");
    layout->addWidget(closeButton);

    placeOver(page, this, [this](const QRect &area, QSize) { return centredOver(area, 300); });
    border = addBackdrop(Theme::kOverviewBorder, "Shape6", [this](const QRect &area, QSize) {
        const int width = Zoom::on(this).px(6);
        return centredOver(area, 300).adjusted(-width, -width, width, width);
    });

    // "Schließen" has the focus: a stray Enter or Space only closes the overview again, while
    // a line, this page's too, loads its page afresh.
    setHarmlessControl(closeButton);
    // A screen reader says the note with "Schließen".
    closeButton->setAccessibleDescription(note->text());
    hide();
}
