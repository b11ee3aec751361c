// SPDX-License-Identifier: GPL-3.0-or-later
#include "zoom.h"

#include <QAbstractButton>
#include <QApplication>
#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QMenu>
#include <QSpacerItem>
#include <QStyleOptionButton>

#include <cmath>

namespace {

// Where a widget keeps its font's size relative to the page's font.
constexpr const char *kRelativeFont = "kelvoraRelativeFont";

QFont scaledFont(QFont font, double scale) {
    const QFont base = QApplication::font();
    if (base.pointSizeF() > 0)
        font.setPointSizeF(base.pointSizeF() * scale);
    else
        font.setPixelSize(std::max(1, static_cast<int>(std::lround(base.pixelSize() * scale))));
    return font;
}

// The screens and their zooms.
QHash<const QWidget *, Zoom *> &screenZooms() {
    static QHash<const QWidget *, Zoom *> zooms;
    return zooms;
}

} // namespace

Zoom::Zoom(QWidget *screen)
    : QObject(screen)
    , screen_(screen) {
    if (screen_)
        screenZooms().insert(screen_, this);
}

Zoom::~Zoom() {
    if (screen_)
        screenZooms().remove(screen_);
}

int Zoom::px(double units) const {
    return static_cast<int>(std::lround(units * factor_));
}

QSize Zoom::size(QSize units) const {
    return {px(units.width()), px(units.height())};
}

void Zoom::follow(QObject *owner, std::function<void(const Zoom &)> apply) {
    apply(*this);
    if (!fixed_)
        followers_.push_back({owner, std::move(apply)});
}

void Zoom::setFactor(double factor, const std::function<void()> &first) {
    if (fixed_ || factor <= 0 || factor == factor_)
        return;
    factor_ = factor;
    if (first)
        first();
    std::erase_if(followers_, [](const Follower &f) { return f.owner.isNull(); });
    // A follower may add followers; those have already run.
    const std::size_t count = followers_.size();
    for (std::size_t i = 0; i < count; ++i) {
        if (followers_[i].owner)
            followers_[i].apply(*this);
    }
    Q_EMIT changed();
}

void Zoom::setFont(QWidget *w, double relative, bool bold) {
    w->setProperty(kRelativeFont, relative);
    follow(w, [w, relative, bold](const Zoom &z) {
        QFont font = scaledFont(QApplication::font(), relative * z.factor());
        font.setBold(bold);
        w->setFont(font);
    });
}

void Zoom::setFixedSize(QWidget *w, QSize units) {
    follow(w, [w, units](const Zoom &z) { w->setFixedSize(z.size(units)); });
}

void Zoom::setFixedWidth(QWidget *w, int units) {
    follow(w, [w, units](const Zoom &z) { w->setFixedWidth(z.px(units)); });
}

void Zoom::setMinimumSize(QWidget *w, QSize units) {
    follow(w, [w, units](const Zoom &z) { w->setMinimumSize(z.size(units)); });
}

void Zoom::setMaximumSize(QWidget *w, QSize units) {
    follow(w, [w, units](const Zoom &z) { w->setMaximumSize(z.size(units)); });
}

void Zoom::setMinimumWidth(QWidget *w, int units) {
    follow(w, [w, units](const Zoom &z) { w->setMinimumWidth(z.px(units)); });
}

void Zoom::setMinimumHeight(QWidget *w, int units) {
    follow(w, [w, units](const Zoom &z) { w->setMinimumHeight(z.px(units)); });
}

void Zoom::setIconSize(QAbstractButton *button, int units) {
    follow(button, [button, units](const Zoom &z) {
        button->setIconSize(QSize(z.px(units), z.px(units)));
    });
}

void Zoom::setMargins(QLayout *layout, int left, int top, int right, int bottom) {
    follow(layout, [=](const Zoom &z) {
        layout->setContentsMargins(z.px(left), z.px(top), z.px(right), z.px(bottom));
    });
}

void Zoom::setSpacing(QLayout *layout, int units) {
    follow(layout, [layout, units](const Zoom &z) { layout->setSpacing(z.px(units)); });
}

void Zoom::setSpacing(QGridLayout *grid, int horizontal, int vertical) {
    follow(grid, [=](const Zoom &z) {
        grid->setHorizontalSpacing(z.px(horizontal));
        grid->setVerticalSpacing(z.px(vertical));
    });
}

void Zoom::addSpacing(QBoxLayout *layout, int units) {
    auto *space = new QSpacerItem(0, 0, QSizePolicy::Fixed, QSizePolicy::Fixed);
    layout->addSpacerItem(space);
    const bool across = layout->direction() == QBoxLayout::LeftToRight ||
                        layout->direction() == QBoxLayout::RightToLeft;
    follow(layout, [layout, space, units, across](const Zoom &z) {
        const int length = z.px(units);
        if (across)
            space->changeSize(length, 0, QSizePolicy::Fixed, QSizePolicy::Minimum);
        else
            space->changeSize(0, length, QSizePolicy::Minimum, QSizePolicy::Fixed);
        layout->invalidate();
    });
}

void Zoom::setColumnMinimumWidth(QGridLayout *grid, int column, int units) {
    follow(grid, [=](const Zoom &z) { grid->setColumnMinimumWidth(column, z.px(units)); });
}

void Zoom::setRowMinimumHeight(QGridLayout *grid, int row, int units) {
    follow(grid, [=](const Zoom &z) { grid->setRowMinimumHeight(row, z.px(units)); });
}

void Zoom::setMargin(QLabel *label, int units) {
    follow(label, [label, units](const Zoom &z) { label->setMargin(z.px(units)); });
}

void Zoom::setLineWidth(QFrame *frame, int units) {
    follow(frame, [frame, units](const Zoom &z) { frame->setLineWidth(std::max(1, z.px(units))); });
}

QFont Zoom::pageFont(double factor) {
    return scaledFont(QApplication::font(), factor);
}

QFont Zoom::designFont(const QWidget *w) {
    if (!w)
        return QApplication::font();
    double relative = 1.0;
    for (const QWidget *p = w; p; p = p->parentWidget()) {
        const QVariant value = p->property(kRelativeFont);
        if (value.isValid()) {
            relative = value.toDouble();
            break;
        }
        if (p->isWindow())
            break;
    }
    QFont font = scaledFont(QApplication::font(), relative);
    font.setWeight(w->font().weight());
    font.setItalic(w->font().italic());
    return font;
}

Zoom *Zoom::of(const QWidget *w) {
    // Up to the screen the widget belongs to, through the windows a menu or a message box opens.
    const QHash<const QWidget *, Zoom *> &zooms = screenZooms();
    for (; w; w = w->parentWidget()) {
        if (Zoom *zoom = zooms.value(w))
            return zoom;
    }
    return nullptr;
}

Zoom &Zoom::on(const QWidget *w) {
    if (Zoom *zoom = of(w))
        return *zoom;
    static Zoom *designSize = [] {
        auto *zoom = new Zoom(nullptr);
        zoom->setParent(QCoreApplication::instance());
        zoom->fixed_ = true;
        return zoom;
    }();
    return *designSize;
}

double Zoom::factorOf(const QWidget *w) {
    const Zoom *zoom = of(w);
    return zoom ? zoom->factor() : 1.0;
}

int ZoomingStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                              const QWidget *widget) const {
    const int size = QProxyStyle::pixelMetric(metric, option, widget);
    const double factor = Zoom::factorOf(widget);
    if (factor == 1.0 || !follows(metric))
        return size;
    return size > 0 ? std::max(1, static_cast<int>(std::lround(size * factor))) : size;
}

QSize ZoomingStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                     const QSize &contents, const QWidget *widget) const {
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    const double factor = Zoom::factorOf(widget);
    if (type == CT_MenuItem && factor > 1.0) {
        // The room the base style leaves beside an entry's text, for the check mark and the
        // margins, is in pixels at the design size; the check mark it draws is as large as the
        // entry is high, and would squeeze the text. Below the design size it keeps that room.
        size.setWidth(contents.width() +
                      static_cast<int>(std::lround((size.width() - contents.width()) * factor)));
        return size;
    }
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (factor == 1.0 || type != CT_PushButton || !button || button->text.isEmpty())
        return size;
    // The base style gives a button with a caption a width of 80 pixels at least; at another
    // zoom that is 80 design units.
    int natural = contents.width() + pixelMetric(PM_ButtonMargin, option, widget) +
                  2 * pixelMetric(PM_DefaultFrameWidth, option, widget);
    if (button->features & QStyleOptionButton::AutoDefaultButton)
        natural += 2 * pixelMetric(PM_ButtonDefaultIndicator, option, widget);
    size.setWidth(std::max(natural, static_cast<int>(std::lround(80 * factor))));
    return size;
}

void ZoomingStyle::polish(QWidget *widget) {
    QProxyStyle::polish(widget);
    // A popup menu is a window of its own and would keep the programme's font at the design
    // size: it follows the page's, as the pages' own menus do.
    if (qobject_cast<QMenu *>(widget) && !widget->testAttribute(Qt::WA_SetFont)) {
        if (Zoom *zoom = Zoom::of(widget))
            zoom->setFont(widget, 1.0);
    }
}

bool ZoomingStyle::follows(PixelMetric metric) {
    switch (metric) {
    case PM_ButtonMargin:
    case PM_ButtonDefaultIndicator:
    case PM_DefaultFrameWidth:
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarItemSpacing:
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin:
    case PM_MenuHMargin:
    case PM_MenuVMargin:
    case PM_MenuPanelWidth:
    case PM_SmallIconSize:
    case PM_ButtonIconSize:
    case PM_MessageBoxIconSize:
    case PM_ScrollBarExtent:
    case PM_ScrollBarSliderMin:
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return true;
    default:
        return false;
    }
}
