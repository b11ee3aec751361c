// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>

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

// A screen: a window with its controls as members named by their role and handlers named by
// what they do. Each control's objectName() is its name on the original form.
class Form : public QMainWindow {
    Q_OBJECT
public:
    explicit Form(ScreenId id, QWidget *parent = nullptr);
    ScreenId screenId() const { return id_; }

    // Form_Load: runs once, right after the screen layer has created the instance.
    virtual void onLoad() {}
    // Form_Activate: runs each time the screen becomes the programme's active screen.
    virtual void onActivate() {}

protected:
    bool event(QEvent *e) override;
    void closeEvent(QCloseEvent *e) override;
    // The keys every screen shares: Enter, Return and keypad Enter press the focused push button
    // (a field, an option or a disabled button ignores them); Escape runs closeOnEscape().
    void keyPressEvent(QKeyEvent *e) override;
    // Escape: closes what lies open over the screen, or the screen itself where Escape stands for
    // its close button. Returns false where Escape has nothing to close.
    virtual bool closeOnEscape() { return false; }

private:
    ScreenId id_;
};
