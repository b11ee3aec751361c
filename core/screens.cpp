// SPDX-License-Identifier: GPL-3.0-or-later
#include "screens.h"

#include "keyboard.h"
#include "messagebox.h"
#include "runcache.h"
#include "zoom.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QBackingStore>
#include <QCloseEvent>
#include <QCoreApplication>
#include <QFont>
#include <QGuiApplication>
#include <QMap>
#include <QPainter>
#include <QPointer>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWindow>

#include <cmath>
#include <functional>
#include <memory>

namespace {

// How long a new page is left alone before the screens likely to follow it are built.
constexpr int kPrepareDelayMs = 40;

// The one window of the screens that take each other's place. A screen shown in it fills it;
// the window takes the shown screen's caption, and its close box unloads that screen.
class ScreenWindow : public QWidget {
public:
    ScreenWindow() {
        setAttribute(Qt::WA_DeleteOnClose, false);
        // The screen shown fills the window and paints all of it.
        setAttribute(Qt::WA_NoSystemBackground);
    }

    void take(Form *form) {
        if (form->parentWidget() != this)
            form->setParent(this, Qt::Widget);
        // The window keeps the smallest size; the screen fills whatever the window has.
        form->setMinimumSize(0, 0);
        form->setGeometry(rect());
    }

    // The screen on top, the one the pupil sees.
    Form *shown() const {
        const auto forms = findChildren<Form *>(Qt::FindDirectChildrenOnly);
        for (auto it = forms.crbegin(); it != forms.crend(); ++it) {
            if (!(*it)->isHidden())
                return *it;
        }
        return nullptr;
    }

protected:
    void resizeEvent(QResizeEvent *) override {
        const auto forms = findChildren<Form *>(Qt::FindDirectChildrenOnly);
        for (Form *form : forms)
            form->setGeometry(rect());
    }
    void closeEvent(QCloseEvent *e) override {
        e->ignore();
        if (Form *form = shown())
            form->close();
    }
};

// Screen readers read the window of the pages as the programme's window, under the caption of the
// screen shown in it; that screen is no window of its own but the window's contents.
QAccessibleInterface *accessibleWindowOfPages(const QString &, QObject *object) {
    if (auto *window = dynamic_cast<ScreenWindow *>(object))
        return new QAccessibleWidget(window, QAccessible::Window);
    if (auto *form = qobject_cast<Form *>(object); form && replacesScreen(form->screenId()))
        return new QAccessibleWidget(form, QAccessible::Client);
    if (auto *form = qobject_cast<Form *>(object))
        return new QAccessibleWidget(form, QAccessible::Dialog);
    return nullptr;
}

struct Layer {
    QMap<ScreenId, Screens::Factory> factories;
    QMap<ScreenId, QPointer<Form>> loaded;
    QMap<ScreenId, QPointer<Form>> spares; // built ahead, not loaded
    QList<QPointer<Form>> activationOrder; // most recently activated last
    QPointer<Form> active;
    QPointer<ScreenWindow> window;
    bool ended = false;
    bool settlePending = false;
    bool preparePending = false;
    int generation = 0; // a reset forgets settling and preparing that was still queued
};

Layer &layer() {
    static Layer l;
    static const bool boxesOverScreens = [] {
        // The programme's message boxes open over the active screen.
        Seams::setBoxParent([]() -> QWidget * { return layer().active; });
        return true;
    }();
    Q_UNUSED(boxesOverScreens)
    return l;
}

void stopTimers(Form *form) {
    const auto timers = form->findChildren<QTimer *>();
    for (QTimer *t : timers)
        t->stop();
}

// Room the window system's frame takes above a window's inside, as far as it can be known.
int titleRoom(const QWidget *model) {
    if (model && model->isVisible()) {
        const int top = model->geometry().top() - model->frameGeometry().top();
        if (top > 0)
            return top;
    }
    return QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight) + 4;
}

// The inside of the largest window the screen can show: the available area less the frame.
QRect usableArea(QScreen *screen, const QWidget *model) {
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return {0, 0, 800, 600};
    return screen->availableGeometry().adjusted(0, titleRoom(model), 0, 0);
}

// The design size of the pages, the screens that take each other's place.
constexpr QSize kPageDesign{800, 600};

// No window smaller than its page at the smallest zoom, unless the screen is smaller still.
QSize smallest(QSize design, const QRect &usable) {
    return (design * Zoom::kSmallest).boundedTo(usable.size());
}

// The window's size at `factor`, made smaller to fit the area with its proportions kept.
QSize fitted(QSize design, double factor, const QRect &area) {
    factor = std::min(
        {factor, double(area.width()) / design.width(), double(area.height()) / design.height()});
    return {int(std::lround(design.width() * factor)), int(std::lround(design.height() * factor))};
}

QRect centredIn(const QRect &area, QSize size) {
    return {area.center().x() - size.width() / 2 + 1, area.center().y() - size.height() / 2 + 1,
            size.width(), size.height()};
}

QRect keptInside(QRect rect, const QRect &area) {
    rect.moveLeft(std::max(area.left(), std::min(rect.left(), area.right() - rect.width() + 1)));
    rect.moveTop(std::max(area.top(), std::min(rect.top(), area.bottom() - rect.height() + 1)));
    return rect;
}

// The window of the screens that take each other's place, made for the first such screen:
// centred on the screen, the page at four fifths of its height.
ScreenWindow *screenWindow() {
    Layer &l = layer();
    if (l.window)
        return l.window;
    static const bool accessible = [] {
        QAccessible::installFactory(accessibleWindowOfPages);
        return true;
    }();
    Q_UNUSED(accessible)
    l.window = new ScreenWindow;
    const QRect usable = usableArea(nullptr, nullptr);
    const int title = titleRoom(nullptr);
    const QRect available = usable.adjusted(0, -title, 0, 0);
    l.window->setMinimumSize(smallest(kPageDesign, usable));
    const double factor = 0.8 * available.height() / kPageDesign.height();
    const QSize size = fitted(kPageDesign, factor, usable).expandedTo(l.window->minimumSize());
    const QRect outside = keptInside(centredIn(available, size + QSize(0, title)), available);
    l.window->setGeometry(outside.adjusted(0, title, 0, 0));
    return l.window;
}

// The screen that replaces others now shown, or nullptr.
Form *currentPage() {
    const Layer &l = layer();
    return l.window ? l.window->shown() : nullptr;
}

// Puts a screen that opens over the page centred over it, at the page's zoom, on the screen, and
// keeps it above the page.
void placeOverPage(Form *form) {
    // A window that belongs to the page's, as a dialog does: the window system keeps it above
    // the page, so that a click on the page does not bury it. It keeps its close and maximise
    // buttons.
    form->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowMaximizeButtonHint |
                         Qt::WindowCloseButtonHint);
    const QWidget *page = currentPage() ? currentPage()->window() : nullptr;
    const QRect usable = usableArea(page ? page->screen() : nullptr, page);
    form->setMinimumSize(smallest(form->designSize(), usable));
    const double factor = page ? currentPage()->zoom().factor() : 1.0;
    const QSize size = fitted(form->designSize(), factor, usable).expandedTo(form->minimumSize());
    form->zoomFor(size);
    const QRect over = page ? page->geometry() : usable;
    form->setGeometry(keptInside(centredIn(over, size), usable));
    if (page && page->windowHandle()) {
        form->winId();
        form->windowHandle()->setTransientParent(page->windowHandle());
    }
}

// A screen shown in the window of the pages takes the keyboard focus where a new window would
// give it: on its first control, unless its own handlers have chosen one.
void focusFirstControl(Form *form) {
    if (!form->focusWidget())
        Keyboard::focusFirstControl(form);
}

// Builds a screen at the zoom it will be shown at, as far as that is known now, so that its
// sizes are set once rather than once for the design size and again for the window.
Form *build(ScreenId id, const Screens::Factory &factory) {
    double factor = 1.0;
    if (replacesScreen(id)) {
        const QSize size = screenWindow()->size();
        factor = std::min(double(size.width()) / kPageDesign.width(),
                          double(size.height()) / kPageDesign.height());
    } else if (const Form *page = currentPage()) {
        factor = page->zoom().factor();
    }
    return factory(factor);
}

// The sizes the window of the pages is most likely to take next: full screen (F11) and
// maximised. Once per run and screen a throwaway copy of the shown screen is drawn unseen at each
// of them that is larger than the window now, so that the fonts, pictures and icons of that zoom
// are ready when the pupil enlarges the window; a window enlarged to a size of its own still
// draws them anew. A pupil enlarges the window soon or not at all: this comes before the screens
// that may follow are prepared.
bool warmLargerSizes(Form *page) {
    static QList<std::pair<ScreenId, QSize>> warmed;
    const QWidget *window = page->window();
    QScreen *screen = window->screen();
    if (!screen)
        return false;
    const QList<QSize> likely = {screen->geometry().size(), usableArea(screen, window).size()};
    for (const QSize &size : likely) {
        if (warmed.contains({page->screenId(), size}) || size.width() <= page->width() ||
            size.height() <= page->height())
            continue;
        warmed.append({page->screenId(), size});
        const Screens::Factory factory = layer().factories.value(page->screenId());
        if (!factory)
            return false;
        const std::unique_ptr<Form> copy(factory(page->factorFor(size)));
        copy->zoomFor(size);
        copy->warmUp();
        // Its fonts are kept for the run, and with them the glyphs drawn at that zoom, which
        // would otherwise go with the copy's last font.
        static RunCache<QFont, bool> fonts;
        const auto widgets = copy->findChildren<QWidget *>();
        for (const QWidget *w : widgets)
            fonts[w->font()] = true;
        return true;
    }
    return false;
}

// Paints into a window's image directly, unseen until the window next shows what it drew.
void paintStore(QBackingStore *store, const std::function<void(QPainter &)> &paint) {
    store->beginPaint(QRect(QPoint(), store->size()));
    {
        QPainter painter(store->paintDevice());
        paint(painter);
    }
    store->endPaint();
}

// On X11 the window's image is memory shared with the X server. When the window grows beyond it,
// a new image is made, and the system clears its memory as the first frame at the new size
// touches it: several milliseconds at full screen, late for that frame. Qt keeps an image that is
// larger than needed as long as the window is more than half as large. So once per window the
// window of the pages is given an image of the screen's size unseen, its memory touched, then
// drawn again at its own size; enlarged later, it draws into memory that is ready.
bool growWindowImage(QWidget *window) {
    static QPointer<QWidget> grown;
    QBackingStore *store = window->backingStore();
    const QWindow *handle = window->windowHandle();
    if (grown == window || !store || !handle || !handle->isExposed() || !window->screen() ||
        QGuiApplication::platformName() != QLatin1String("xcb"))
        return false;
    const QSize own = store->size();
    const QSize full = window->screen()->geometry().size();
    const qint64 ownArea = qint64(own.width()) * own.height();
    const qint64 fullArea = qint64(full.width()) * full.height();
    if (fullArea <= ownArea || 2 * ownArea <= fullArea)
        return false;
    grown = window;
    store->resize(full);
    paintStore(store, [&](QPainter &painter) {
        painter.fillRect(QRect(QPoint(), full), window->palette().window());
    });
    store->resize(own);
    paintStore(store, [window](QPainter &painter) { window->render(&painter); });
    return true;
}

// Builds the next of the screens the shown page names that is neither loaded nor prepared; one
// each time, so that a key the pupil presses meanwhile waits for one screen at most. A prepared
// screen stays outside every window, so that nothing sees it before it is shown.
bool prepareOne() {
    Layer &l = layer();
    Form *page = currentPage();
    if (l.ended || !page)
        return false;
    if (!page->warm()) {
        page->warmUp();
        return true;
    }
    if (warmLargerSizes(page) || growWindowImage(page->window()))
        return true;
    const QList<ScreenId> likely = page->likelyNext();
    for (auto it = l.spares.begin(); it != l.spares.end();) {
        if (!likely.contains(it.key()) || !it.value()) {
            delete it.value().data();
            it = l.spares.erase(it);
        } else {
            ++it;
        }
    }
    // A window that changed its size since: its prepared screens follow.
    for (const QPointer<Form> &spare : std::as_const(l.spares)) {
        if (spare->size() != page->size()) {
            spare->zoomFor(page->size());
            spare->warmUp();
            return true;
        }
    }
    for (ScreenId id : likely) {
        if (l.loaded.contains(id) || l.spares.contains(id) || !l.factories.value(id))
            continue;
        Form *spare = build(id, l.factories.value(id));
        l.spares.insert(id, spare);
        spare->zoomFor(page->size());
        spare->warmUp();
        return true;
    }
    return false;
}

void schedulePrepare() {
    Layer &l = layer();
    if (l.preparePending)
        return;
    l.preparePending = true;
    QTimer::singleShot(kPrepareDelayMs, qApp, [generation = l.generation] {
        Layer &now = layer();
        if (generation != now.generation)
            return;
        now.preparePending = false;
        if (prepareOne())
            schedulePrepare();
    });
}

void makeActive(Form *form) {
    Layer &l = layer();
    l.activationOrder.removeAll(form);
    l.activationOrder.append(form);
    if (l.active == form)
        return;
    l.active = form;
    form->onActivate();
    if (replacesScreen(form->screenId()))
        schedulePrepare();
}

// Runs once the handler that unloaded a screen has returned: with no screen left the programme
// ends; otherwise the screen used last becomes active again. The window of the pages goes when
// no page is left in it.
void settle() {
    Layer &l = layer();
    l.settlePending = false;
    if (l.ended)
        return;
    if (l.loaded.isEmpty()) {
        l.ended = true;
        if (l.window)
            l.window->hide();
        QCoreApplication::exit(0);
        return;
    }
    if (l.window && !l.window->shown())
        l.window->hide();
    if (l.active)
        return;
    l.activationOrder.removeAll(nullptr);
    if (l.activationOrder.isEmpty())
        return;
    Form *next = l.activationOrder.last();
    next->window()->raise();
    next->activateWindow();
    makeActive(next);
}

void scheduleSettle() {
    Layer &l = layer();
    if (l.settlePending)
        return;
    l.settlePending = true;
    QTimer::singleShot(0, qApp, [generation = l.generation] {
        if (generation == layer().generation)
            settle();
    });
}

// The window system activated one of the screens.
void activatedBySystem(Form *form) {
    // Activation events can arrive late, after a handler has already shown another screen.
    // Only the screen that still holds the focus once the queue has settled becomes active.
    QPointer<Form> candidate(form);
    QTimer::singleShot(0, form, [candidate] {
        Layer &l = layer();
        if (!candidate || l.ended || l.loaded.value(candidate->screenId()) != candidate ||
            candidate->isHidden())
            return;
        if (QGuiApplication::focusWindow() != candidate->window()->windowHandle())
            return;
        makeActive(candidate);
    });
}

void dropSpares() {
    Layer &l = layer();
    const auto spares = l.spares.values();
    l.spares.clear();
    for (const QPointer<Form> &spare : spares)
        delete spare.data();
}

} // namespace

void Screens::registerScreen(ScreenId id, const Factory &factory) {
    Layer &l = layer();
    l.factories.insert(id, factory);
    delete l.spares.take(id).data();
}

Form *Screens::show(ScreenId id) {
    Layer &l = layer();
    if (l.ended)
        return nullptr;
    Form *form = l.loaded.value(id);
    if (!form) {
        form = l.spares.take(id);
        if (!form) {
            const Factory factory = l.factories.value(id);
            if (!factory)
                return nullptr;
            form = build(id, factory);
        }
        if (replacesScreen(id)) {
            // It takes its place in the window of the pages, at that window's size; when the
            // window changes its size, what is prepared for it follows.
            ScreenWindow *window = screenWindow();
            window->take(form);
            form->zoomFor(window->size());
            QObject::connect(&form->zoom(), &Zoom::changed, form, [] { schedulePrepare(); });
        } else {
            placeOverPage(form);
        }
        l.loaded.insert(id, form);
        QObject::connect(form, &Form::activated, form, [form] { activatedBySystem(form); });
        QObject::connect(form, &Form::closeRequested, form, [form] { Screens::unload(form); });
        form->onLoad();
        if (l.ended || l.loaded.value(id) != form)
            return nullptr;
    }
    form->show();
    form->raise();
    if (form->parentWidget()) {
        QWidget *window = form->window();
        window->setWindowTitle(form->windowTitle());
        window->setAccessibleName(form->accessibleName());
        window->show();
        window->raise();
        focusFirstControl(form);
    }
    form->activateWindow();
    makeActive(form);
    return form;
}

void Screens::unload(ScreenId id) {
    unload(loaded(id));
}

void Screens::unload(Form *form) {
    Layer &l = layer();
    if (!form || l.loaded.value(form->screenId()) != form)
        return;
    l.loaded.remove(form->screenId());
    l.activationOrder.removeAll(form);
    if (l.active == form)
        l.active = nullptr;
    stopTimers(form);
    form->hide();
    form->setParent(nullptr);
    form->deleteLater();
    scheduleSettle();
}

Form *Screens::loaded(ScreenId id) {
    return layer().loaded.value(id);
}

bool Screens::anyLoaded() {
    return !layer().loaded.isEmpty();
}

Form *Screens::activeScreen() {
    return layer().active;
}

void Screens::prepareLikelyNext() {
    while (prepareOne()) {
    }
}

bool Screens::prepared(ScreenId id) {
    return layer().spares.value(id) != nullptr;
}

void Screens::endProgramme() {
    Layer &l = layer();
    if (l.ended)
        return;
    l.ended = true;
    const auto forms = l.loaded.values();
    l.loaded.clear();
    l.activationOrder.clear();
    l.active = nullptr;
    dropSpares();
    for (const QPointer<Form> &form : forms) {
        if (!form)
            continue;
        stopTimers(form);
        form->hide();
        form->deleteLater();
    }
    if (l.window)
        l.window->hide();
    QCoreApplication::exit(0);
}

bool Screens::programmeEnded() {
    return layer().ended;
}

void Screens::reset() {
    Layer &l = layer();
    const auto forms = l.loaded.values();
    l.loaded.clear();
    l.activationOrder.clear();
    l.active = nullptr;
    for (const QPointer<Form> &form : forms)
        delete form.data();
    dropSpares();
    delete l.window.data();
    l.ended = false;
    l.settlePending = false;
    l.preparePending = false;
    ++l.generation;
}
