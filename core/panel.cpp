// SPDX-License-Identifier: GPL-3.0-or-later
#include "panel.h"

#include "zoom.h"

#include <QEvent>
#include <QPushButton>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

namespace {

// Keeps a floating panel placed over its page as the page changes size.
class Placement : public QObject {
public:
    Placement(QWidget *page, QWidget *panel, std::function<QRect(const QRect &, QSize)> place,
              QWidget *beneath)
        : QObject(panel)
        , page_(page)
        , panel_(panel)
        , beneath_(beneath)
        , place_(std::move(place)) {
        page->installEventFilter(this);
        panel->installEventFilter(this);
        apply();
    }

protected:
    bool eventFilter(QObject *watched, QEvent *e) override {
        // A hidden panel too: where it appears then is where it is, and nothing else is drawn.
        if ((watched == page_ && e->type() == QEvent::Resize) ||
            (watched == panel_ && e->type() == QEvent::Show))
            apply();
        return false;
    }

private:
    void apply() {
        panel_->setGeometry(place_(page_->rect(), panel_->sizeHint()));
        panel_->raise();
        if (beneath_)
            panel_->stackUnder(beneath_);
    }

    QWidget *page_;
    QWidget *panel_;
    QWidget *beneath_;
    std::function<QRect(const QRect &, QSize)> place_;
};

} // namespace

void placeOver(QWidget *page, QWidget *panel, std::function<QRect(const QRect &, QSize)> place,
               QWidget *beneath) {
    new Placement(page, panel, std::move(place), beneath);
}

PagePanel::PagePanel(const QString &title, const char *formName, QWidget *page)
    : QGroupBox(title, page)
    , page_(page) {
    setObjectName(QString::fromUtf8(formName));
    setAutoFillBackground(true);
}

void PagePanel::setHarmlessControl(QPushButton *button) {
    harmless_ = button;
}

QPushButton *PagePanel::addButton(const QString &caption, const char *formName) {
    auto *button = new QPushButton(caption, this);
    button->setObjectName(QString::fromUtf8(formName));
    Zoom::on(page_).setMinimumHeight(button, 32);
    return button;
}

QWidget *PagePanel::addBackdrop(const QColor &colour, const char *formName,
                                std::function<QRect(const QRect &, QSize)> place) {
    auto *area = new QWidget(page_);
    area->setObjectName(QString::fromUtf8(formName));
    area->setAutoFillBackground(true);
    QPalette palette = area->palette();
    palette.setColor(QPalette::Window, colour);
    area->setPalette(palette);
    placeOver(page_, area, std::move(place), this);
    area->hide();
    return area;
}

QRect PagePanel::centredOver(const QRect &area, int minimumWidth) const {
    const QSize size =
        sizeHint().expandedTo(QSize(Zoom::on(page_).px(minimumWidth), 0)).boundedTo(area.size());
    return {area.center().x() - size.width() / 2, area.center().y() - size.height() / 2,
            size.width(), size.height()};
}

void PagePanel::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    // The style places the title at the top left corner of the widget, whatever the rect.
    const int margin = Zoom::on(this).px(kMargin);
    painter.translate(margin, margin);
    option.rect.adjust(0, 0, -2 * margin, -2 * margin);
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

bool PagePanel::event(QEvent *e) {
    if (e->type() == QEvent::Show && harmless_)
        harmless_->setFocus();
    return QGroupBox::event(e);
}
