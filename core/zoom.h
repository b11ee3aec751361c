// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QObject>
#include <QPointer>
#include <QProxyStyle>
#include <QSize>

#include <functional>
#include <vector>

class QAbstractButton;
class QBoxLayout;
class QFrame;
class QGridLayout;
class QLabel;
class QLayout;
class QWidget;

// Every screen is designed for one window size (the pages for 800 x 600 pixels) and shown at any
// size. One factor per window, taken from the window's size against that design size with its
// proportions kept, scales everything that has a size: the page's font (every other font is a
// multiple of it), and the sizes, margins and spacings that the screens give in design units,
// which are pixels at the design size. Icons, drawings and pictures are drawn afresh at the new
// size, so they stay crisp.
class Zoom : public QObject {
    Q_OBJECT
public:
    // The smallest factor a window can be made, unless its screen is smaller still.
    static constexpr double kSmallest = 0.8;

    // The zoom of a screen: `screen` and every widget inside it follow this factor. Without a
    // screen, a zoom of its own.
    explicit Zoom(QWidget *screen);
    ~Zoom() override;
    Zoom(const Zoom &) = delete;
    Zoom &operator=(const Zoom &) = delete;

    double factor() const { return factor_; }
    // Design units in pixels at the current factor.
    int px(double units) const;
    QSize size(QSize units) const;

    // Runs `apply` now and again after every change of the factor, for as long as `owner` lives.
    void follow(QObject *owner, std::function<void(const Zoom &)> apply);

    // The sizes the screens give, in design units. A font is `relative` times the page's font.
    void setFont(QWidget *w, double relative, bool bold = false);
    void setBold(QWidget *w) { setFont(w, 1.0, true); }
    void setFixedSize(QWidget *w, QSize units);
    void setFixedWidth(QWidget *w, int units);
    void setMinimumSize(QWidget *w, QSize units);
    void setMaximumSize(QWidget *w, QSize units);
    void setMinimumWidth(QWidget *w, int units);
    void setMinimumHeight(QWidget *w, int units);
    void setIconSize(QAbstractButton *button, int units);
    void setMargins(QLayout *layout, int left, int top, int right, int bottom);
    void setMargins(QLayout *layout, int all) { setMargins(layout, all, all, all, all); }
    void setSpacing(QLayout *layout, int units);
    void setSpacing(QGridLayout *grid, int horizontal, int vertical);
    void addSpacing(QBoxLayout *layout, int units);
    void setColumnMinimumWidth(QGridLayout *grid, int column, int units);
    void setRowMinimumHeight(QGridLayout *grid, int row, int units);
    void setMargin(QLabel *label, int units);
    void setLineWidth(QFrame *frame, int units);

    // Changes the factor and brings everything that follows it up to date; `first` runs once the
    // factor is in place, before anything follows it.
    void setFactor(double factor, const std::function<void()> &first = {});

    // The programme's font at the page's size for this factor.
    static QFont pageFont(double factor);
    // The font a widget has at the design size: its relative size and weight, without the zoom.
    static QFont designFont(const QWidget *w);
    // The zoom of the window a widget is on (the nearest screen up its parents), or nullptr for a
    // widget outside every screen.
    static Zoom *of(const QWidget *w);
    static double factorOf(const QWidget *w);
    // The zoom of the window `w` is on, or for a widget outside every screen one that stays at the
    // design size.
    static Zoom &on(const QWidget *w);

Q_SIGNALS:
    void changed();

private:
    struct Follower {
        QPointer<QObject> owner;
        std::function<void(const Zoom &)> apply;
    };
    const QWidget *screen_;
    double factor_ = 1.0;
    bool fixed_ = false;
    std::vector<Follower> followers_;
};

// A style whose own sizes (indicators of option buttons and check marks, button margins, frames,
// menu margins, default spacings) follow the zoom of the window they are drawn in.
class ZoomingStyle : public QProxyStyle {
public:
    explicit ZoomingStyle(QStyle *base)
        : QProxyStyle(base) {}

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                           const QWidget *widget) const override;
    using QProxyStyle::polish;
    // A popup menu opened from a screen (a field's context menu) follows the page's font.
    void polish(QWidget *widget) override;

private:
    static bool follows(PixelMetric metric);
};
