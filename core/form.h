// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QMainWindow>
#include <QPointer>

class Zoom;

// Every screen of the programme. Each has one default instance, managed by the screen layer
// (screens.h), which is created by the first show and destroyed by unload. The comment names the
// form each screen was drawn as; a screen's objectName() is that name too.
enum class ScreenId {
    Start,         // Start
    ControlCentre, // Steuerzentrum
    Page1,         // Qel1 .. Qel10: the lesson pages
    Page2,
    Page3,
    Page4,
    Page5,
    Page6,
    Page7,
    Page8,
    Page9,
    Page10,
    FinalTest,     // Qel11
    EndPage,       // Qel50
    GradeScale,    // QelZens
    WorkingMethod, // ArbWei
    Author,        // Autor
    Requirements,  // Voraus
    DisplayMode,   // Auflösung
};

// The screen of page 1..11 or of the end page 50.
ScreenId pageScreen(int page);
// The form name a screen was drawn as: "Qel1", "Steuerzentrum", "Auflösung", ...
QString formName(ScreenId id);

// Whether a screen takes the place of the screen before it (the pages, the start screen, the
// control centre and the end page) or opens over the page it was chosen from (the information
// screens, the grade scale and the display-mode screen).
bool replacesScreen(ScreenId id);

// A screen: a window with its controls as members named by their role and handlers named by
// what they do. Each control's objectName() is its name on the original form.
//
// A screen builds its controls into page(), which is designed at designSize() and shown at that
// size times the window's zoom factor, centred in the window with an even band of the page's
// colour where the window's proportions differ from the design's. The menu bar of a page belongs
// to the design size too.
class Form : public QMainWindow {
    Q_OBJECT
public:
    // Built at the zoom factor of the window it will be shown in, which the screen layer knows:
    // its sizes are set once, not once for the design size and again for the window.
    Form(ScreenId id, double zoomFactor);
    ~Form() override;
    ScreenId screenId() const { return id_; }

    // Form_Load: runs once, right after the screen layer has created the instance.
    virtual void onLoad() {}
    // Form_Activate: runs each time the screen becomes the programme's active screen.
    virtual void onActivate() {}
    // The screens the pupil is likely to open from here next; the screen layer builds them while
    // the pupil reads, so that the page change itself only shows them.
    virtual QList<ScreenId> likelyNext() const { return {}; }

    QWidget *page() const { return page_; }
    // Tints the bands beside the page, where the window's proportions are not the page's, as a
    // cover over the page tints the page (an invalid colour: none).
    void setBandTint(const QColor &tint);
    QSize designSize() const { return designSize_; }
    Zoom &zoom() const { return *zoom_; }
    // The zoom factor for a window whose inside has this size.
    double factorFor(QSize windowSize) const;
    // Zooms and lays the screen out at once for a window of this size (inside the frame); the
    // screen layer does this before a screen is shown. A shown screen follows its window's size
    // by itself, once per frame.
    void zoomFor(QSize windowSize);
    // Lays out every control now, as showing the screen would.
    void layOutNow();
    // Draws the screen once where nobody sees it, the parts it shows only later (verdicts,
    // notes, panels) as well, so that showing them costs no first-time work while the pupil
    // waits: texts laid out, icons and the style's images made at their size. Once per zoom.
    void warmUp();
    bool warm() const;

Q_SIGNALS:
    // The window system made this screen's window the active one (the pupil clicked it, say).
    void activated();
    // The screen's close box was pressed, or close() called: the screen layer unloads it.
    void closeRequested();

protected:
    void setDesignSize(QSize size);
    bool event(QEvent *e) override;
    bool eventFilter(QObject *watched, QEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    // The keys every screen shares: Enter, Return and keypad Enter press the focused push button
    // (a field, an option or a disabled button ignores them); Escape runs closeOnEscape(), and
    // then leaves the whole screen; F11 shows the page on the whole screen and back.
    void keyPressEvent(QKeyEvent *e) override;
    // Escape: closes what lies open over the screen, or the screen itself where Escape stands for
    // its close button. Returns false where Escape has nothing to close.
    virtual bool closeOnEscape() { return false; }

private:
    friend class PageFrame;
    void requestZoom();
    void applyZoom();
    void zoomTo(double factor);
    void placePage();

    ScreenId id_;
    Zoom *zoom_;
    QWidget *frame_;
    QWidget *page_;
    QSize designSize_{800, 600};
    bool zoomPending_ = false;
    bool zooming_ = false;
    double warmAt_ = 0; // the zoom factor the screen was last drawn unseen at
    QPointer<QObject> watchedWindow_;
};
