// SPDX-License-Identifier: GPL-3.0-or-later
#include "form.h"

#include "accessibility.h"
#include "appearing.h"
#include "keyboard.h"
#include "zoom.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QImage>
#include <QKeyEvent>
#include <QLayout>
#include <QPainter>
#include <QPushButton>
#include <QWindow>

#include <array>
#include <cmath>

ScreenId pageScreen(int page) {
    if (page >= 1 && page <= 11)
        return static_cast<ScreenId>(static_cast<int>(ScreenId::Page1) + page - 1);
    return ScreenId::EndPage;
}

QString formName(ScreenId id) {
    static constexpr std::array<const char *, 19> kNames = {
        "Start",   "Steuerzentrum", "Qel1",  "Qel2",   "Qel3",     "Qel4",  "Qel5",
        "Qel6",    "Qel7",          "Qel8",  "Qel9",   "Qel10",    "Qel11", "Qel50",
        "QelZens", "ArbWei",        "Autor", "Voraus", "Auflösung"};
    static_assert(kNames.size() == static_cast<std::size_t>(ScreenId::DisplayMode) + 1);
    return QString::fromUtf8(kNames.at(static_cast<std::size_t>(id)));
}

bool replacesScreen(ScreenId id) {
    return id <= ScreenId::EndPage;
}

namespace {

// Posted when the window's size changed; several changes before the next frame make one.
const QEvent::Type kZoomRequest = static_cast<QEvent::Type>(QEvent::registerEventType());

} // namespace

// The window's inside below the menu bar: it holds the page at its zoomed size, centred, and asks
// for a new zoom whenever its size changes.
class PageFrame : public QWidget {
public:
    explicit PageFrame(Form *form)
        : QWidget(form)
        , form_(form) {}

    // What lies over the page lies over the bands beside it too.
    void setBandTint(const QColor &tint) {
        tint_ = tint;
        update();
    }

protected:
    void resizeEvent(QResizeEvent *) override { form_->requestZoom(); }
    void paintEvent(QPaintEvent *) override {
        if (!tint_.isValid())
            return;
        QPainter painter(this);
        painter.setClipRegion(QRegion(rect()).subtracted(form_->page()->geometry()));
        painter.fillRect(rect(), tint_);
    }

private:
    Form *form_;
    QColor tint_;
};

Form::Form(ScreenId id, double zoomFactor)
    : QMainWindow(nullptr)
    , id_(id)
    , zoom_(new Zoom(this))
    , frame_(new PageFrame(this))
    , page_(new QWidget(frame_)) {
    Accessibility::install();
    setAttribute(Qt::WA_DeleteOnClose, false);
    // The screen paints its whole window in its page's colour, the band around the page too.
    setAutoFillBackground(true);
    setObjectName(formName(id));
    setCentralWidget(frame_);
    zoom_->setFactor(zoomFactor);
    setFont(Zoom::pageFont(zoomFactor));
    setMinimumSize(designSize_ * Zoom::kSmallest);
}

Form::~Form() = default;

void Form::setDesignSize(QSize size) {
    designSize_ = size;
    setMinimumSize(size * Zoom::kSmallest);
}

double Form::factorFor(QSize windowSize) const {
    if (designSize_.isEmpty() || windowSize.isEmpty())
        return 1.0;
    return std::min(double(windowSize.width()) / designSize_.width(),
                    double(windowSize.height()) / designSize_.height());
}

void Form::zoomFor(QSize windowSize) {
    resize(windowSize);
    zoomPending_ = false;
    zoomTo(factorFor(windowSize));
}

void Form::zoomTo(double factor) {
    // Laying the window out again moves the frame below a menu bar of the new size; that needs
    // no second zoom.
    zooming_ = true;
    // The style measures by the factor, and what follows the zoom may measure text in the
    // page's font: the factor first, then the font, then everything else.
    zoom_->setFactor(factor, [this, factor] { setFont(Zoom::pageFont(factor)); });
    if (layout())
        layout()->activate();
    placePage();
    zooming_ = false;
}

void Form::layOutNow() {
    ensurePolished();
    if (layout())
        layout()->activate();
    // Parents before their children, as showing the screen would lay them out.
    const auto widgets = findChildren<QWidget *>();
    for (QWidget *w : widgets) {
        if (w->layout() && !w->isWindow())
            w->layout()->activate();
    }
}

bool Form::warm() const {
    return warmAt_ == zoom_->factor();
}

void Form::warmUp() {
    layOutNow();
    // Drawn piece by piece into one small image: all the work of drawing, glyphs included, and
    // hardly any memory for it.
    QImage tile(256, 256, QImage::Format_ARGB32_Premultiplied);
    const auto draw = [&tile](QWidget *w) {
        for (int y = 0; y < w->height(); y += tile.height()) {
            for (int x = 0; x < w->width(); x += tile.width())
                w->render(&tile, QPoint(), QRegion(x, y, tile.width(), tile.height()));
        }
    };
    // What a shown screen shows has been drawn already.
    if (!isVisible())
        draw(this);
    const auto widgets = findChildren<QWidget *>();
    for (QWidget *w : widgets) {
        const bool unseen = w->isHidden() || !Appearing::isVisible(w);
        if (unseen && !w->isWindow() && w->parentWidget()->isVisibleTo(this))
            draw(w);
    }
    // Drawing the hidden parts asked their parents for a new layout: done here, not when shown.
    layOutNow();
    warmAt_ = zoom_->factor();
}

void Form::requestZoom() {
    if (zoomPending_ || zooming_)
        return;
    zoomPending_ = true;
    // A hidden screen is zoomed when it is shown; until then the screen layer zooms it for the
    // window it is being prepared for.
    if (isVisible())
        QCoreApplication::postEvent(this, new QEvent(kZoomRequest));
}

void Form::applyZoom() {
    if (!zoomPending_)
        return;
    // A window that is to be maximised or full screen has its final size only once the window
    // system has put it there; until then its size is the one it will have when restored.
    const QWidget *top = window();
    const bool exposed = top->windowHandle() && top->windowHandle()->isExposed();
    if (!exposed && (top->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)))
        return;
    zoomPending_ = false;
    zoomTo(factorFor(size()));
}

void Form::setBandTint(const QColor &tint) {
    static_cast<PageFrame *>(frame_)->setBandTint(tint);
}

void Form::placePage() {
    const double factor = zoom_->factor();
    // The menu bar belongs to the design size: the page is what is left of it below the bar.
    const int menu = frame_->y();
    const QSize frame = frame_->size();
    const QSize size(
        std::min(frame.width(), int(std::lround(designSize_.width() * factor))),
        std::min(frame.height(), int(std::lround(designSize_.height() * factor)) - menu));
    page_->setGeometry((frame.width() - size.width()) / 2, (frame.height() - size.height()) / 2,
                       size.width(), size.height());
}

bool Form::event(QEvent *e) {
    switch (e->type()) {
    case QEvent::WindowActivate:
        Q_EMIT activated();
        break;
    case QEvent::Show:
        // Drawn for the first time at the right size, not one frame later.
        if (QWindow *handle = window()->windowHandle(); handle && handle != watchedWindow_) {
            if (watchedWindow_)
                watchedWindow_->removeEventFilter(this);
            watchedWindow_ = handle;
            watchedWindow_->installEventFilter(this);
        }
        applyZoom();
        break;
    case QEvent::WindowTitleChange:
        // The caption's blanks place the title on the caption bar; a listener hears it without.
        setAccessibleName(Accessibility::spokenCaption(windowTitle()));
        break;
    case QEvent::Polish:
        // Before the screen first shows, its controls are complete: they take their reading order.
        Keyboard::followReadingOrder(this);
        break;
    default:
        if (e->type() == kZoomRequest) {
            applyZoom();
            return true;
        }
        break;
    }
    return QMainWindow::event(e);
}

bool Form::eventFilter(QObject *watched, QEvent *e) {
    // The window system may ask for the window to be drawn before the posted zoom has run.
    if (watched == watchedWindow_ && e->type() == QEvent::Expose)
        applyZoom();
    return QMainWindow::eventFilter(watched, e);
}

void Form::keyPressEvent(QKeyEvent *e) {
    switch (e->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        // As on Windows, Enter presses the button that has the focus. The event comes here when
        // the focused control left it alone; message boxes are no screens and keep their own
        // default button.
        auto *button = qobject_cast<QPushButton *>(focusWidget());
        if (button && button->isEnabled()) {
            if (!e->isAutoRepeat()) // a key held down presses once
                button->click();
            return;
        }
        break;
    }
    case Qt::Key_Escape:
        // An open panel or a screen that Escape closes comes first; what Escape means beyond
        // that belongs here too, after it.
        if (closeOnEscape())
            return;
        // Then it leaves the whole screen.
        if (e->modifiers() == Qt::NoModifier && (window()->windowState() & Qt::WindowFullScreen)) {
            window()->setWindowState(window()->windowState() & ~Qt::WindowFullScreen);
            return;
        }
        break;
    case Qt::Key_F11:
        // The page on the whole screen and back.
        if (e->modifiers() == Qt::NoModifier) {
            window()->setWindowState(window()->windowState() ^ Qt::WindowFullScreen);
            return;
        }
        break;
    default:
        break;
    }
    QMainWindow::keyPressEvent(e);
}

void Form::closeEvent(QCloseEvent *e) {
    // The close box unloads the screen; the screen layer ends the programme once none is left.
    e->ignore();
    Q_EMIT closeRequested();
}
