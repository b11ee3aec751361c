// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QMainWindow>

class QAbstractButton;
class QLabel;
class QPushButton;
class QWidget;

// Every screen of the programme. Each has one default instance, managed by the screen layer
// (screens.h), which is created by the first show and destroyed by unload.
enum class ScreenId {
    Start,
    Steuerzentrum,
    Qel1,
    Qel2,
    Qel3,
    Qel4,
    Qel5,
    Qel6,
    Qel7,
    Qel8,
    Qel9,
    Qel10,
    Qel11,
    Qel50,
    QelZens,
    ArbWei,
    Autor,
    Voraus,
    Auflösung,
};

// The screen of page 1..11 or of the end page 50.
ScreenId pageScreen(int page);

// A screen: a window with named controls and handlers named by control and event.
class Form : public QMainWindow {
    Q_OBJECT
public:
    explicit Form(ScreenId id, QWidget *parent = nullptr);
    ScreenId screenId() const { return id_; }

    // Runs once, right after the screen layer has created the instance.
    virtual void Form_Load() {}
    // Runs each time the screen becomes the programme's active screen.
    virtual void Form_Activate() {}

protected:
    bool event(QEvent *e) override;
    void closeEvent(QCloseEvent *e) override;

private:
    ScreenId id_;
};

// "Kelvora", a run of blanks and the screen's own title, so that the title sits at the right end
// of the caption bar.
QString windowCaption(int blanks, const QString &title);

// A caption as shown on screen: in the programme's captions, runs of blanks stand for line
// breaks. A run of at least lineRun blanks becomes a line break, one of at least paragraphRun an
// empty line; shorter runs stay as they are.
QString captionOnScreen(const QString &caption, int lineRun, int paragraphRun);

// The pale blue central widget of the title-like screens (start, control centre, end page).
QWidget *tintedCentralWidget(QMainWindow *window);
// A bold heading in the programme's dark blue.
QLabel *headingLabel(const QString &text, int pointSize, QWidget *parent);

// A button that shows a picture instead of a caption; its function in words is its accessible
// name and its tooltip.
QPushButton *pictureButton(const QString &icon, const QString &name, QWidget *parent,
                           int iconSize = 36);

// Back colours of buttons: light grey marks the button the pupil should use next.
QColor lightGrey();
QColor buttonFace();
void setBackColour(QWidget *w, const QColor &colour);
// Enabled and light grey, or disabled with the button-face colour: both in one step.
void setActive(QAbstractButton *button, bool active);
