// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "exitframe.h"
#include "form.h"
#include "overview.h"

#include <QList>
#include <QPointer>
#include <QRect>
#include <QSize>
#include <QString>

#include <array>
#include <functional>

class Course;
class Picture;
class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QTimer;

// One control button in the button explanation: its picture (a resource path of an icon) or its
// caption, and what it does.
struct ExplanationItem {
    QString icon;
    QString caption;
    QString text;
};

// The button explanation as rich text: the items row by row, `columns` items a row.
QString explanationHtml(const QList<ExplanationItem> &items, int columns);

// What every page of the course carries around its own content, lesson pages and the final test
// alike: the menu bar, the end button with the exit frame "Wie möchtest du beenden?", the page
// overview "Wo bin ich?" and the button explanation with its timers. A page builds its own
// content into a central widget, lets the base add these parts over it, and puts the end button,
// the explanation and its hint where its layout wants them.
class PageBase : public Form {
    Q_OBJECT
public:
    int pageNumber() const { return pageNumber_; }

    // Command3_Click: the exit frame appears over the page, in the overview's place.
    void openExitFrame();
    // Command10_Click, "... von vorn beginnen": the next start begins at the start screen.
    void restartFromBeginning();
    // Command11_Click, "... hier weiterarbeiten": the next start opens this page.
    void resumeHere();
    // Command12_Click, "Ich möchte nicht beenden".
    void closeExitFrame();
    // mnuWo_Click: the overview appears, in the exit frame's place.
    void openOverview();
    // Command6_Click, "Schließen".
    void closeOverview();
    // Label11_Click (Label20_Click on page 11): unload this page, then show the chosen one.
    void jumpToPage(int index);
    // mnuSteuer_Click.
    void toggleExplanation();
    // Timer2_Timer: the explanation goes and the hint where to call it back comes.
    void endExplanation();
    // Timer3_Timer: the hint goes.
    void endHint();
    // The explanation goes and its entry loses the check mark, once the buttons are understood.
    void withdrawExplanation();

    // The menu bar. The "&Info" entries open their information screens.
    QMenu *viewMenu = nullptr;             // mnuAns "&Ansicht"
    QAction *explanationEntry = nullptr;   // mnuSteuer, check-marked while the explanation shows
    QAction *pointsEntry = nullptr;        // mnuPunkt, lesson pages only
    QAction *overviewEntry = nullptr;      // mnuWo
    QMenu *infoMenu = nullptr;             // mnuInfo "&Info"
    QAction *workingMethodEntry = nullptr; // mnuAWeise
    QAction *displayModeEntry = nullptr;   // mnuAuflösung
    QAction *requirementsEntry = nullptr;  // mnuVoraus
    QAction *authorEntry = nullptr;        // mnuAutor

    QPushButton *endButton = nullptr; // Command3: opens the exit frame

    ExitFrame *exitFrame = nullptr; // Frame10, with its cover Picture10
    Overview *overview = nullptr;   // Frame2 in Shape6; its lines Label11 (Label20 on page 11)

    Picture *explanationPicture = nullptr; // Image4 (Image1 on page 11)
    QLabel *explanationHint = nullptr;     // Label12 (Label21 on page 11); with the timers only
    QTimer *explanationTimer = nullptr;    // Timer2
    QTimer *hintTimer = nullptr;           // Timer3

protected:
    PageBase(ScreenId id, int pageNumber, Course &course, double zoomFactor);

    // What a page gives the shared parts: the explanation's rich text, the form names of the
    // explanation picture and of the overview lines, the size of the end button's icon.
    struct PageParts {
        bool withPointsEntry = false;
        QString explanation;
        QString explanationName;
        QString overviewLineName;
        int iconSize = 36;
    };
    // Adds the shared parts: the menu bar, the end button, the explanation picture and the two
    // panels over `central`.
    void buildPageParts(QWidget *central, const PageParts &parts);
    // The pages that introduce their buttons: the explanation goes after `ms`, the hint after
    // another `ms`.
    void addExplanationTimers(int ms, const QString &hintName);

    // What the start-position file holds after the page number.
    virtual QList<int> numbersAfterResume() const { return {}; }
    virtual QList<int> numbersAfterRestart() const { return {}; }
    // Where the keyboard focus goes when a panel closes. Without a rule of its own the page gives
    // the focus back to where it was when the panel opened.
    virtual void focusAfterExitFrame() = 0;
    virtual void focusAfterOverview();

    // Escape closes the panel in front: the overview or the exit frame.
    bool closeOnEscape() override;
    // While a panel is open over the page, Tab and Shift+Tab stay in it.
    bool focusNextPrevChild(bool next) override;

    Course &course_; // the course every page shares

private:
    void buildMenus(bool withPointsEntry);
    // The open panel in front, or nullptr.
    PagePanel *panelInFront() const;

    int pageNumber_;
    QPointer<QWidget> focusBeforePanel_; // where the focus was before a panel opened
};

// Connects a check-marked entry to its handler. The handler alone sets and clears the mark, so
// the mark it reads is the one the pupil saw when choosing the entry.
void connectCheckEntry(QAction *entry, QObject *context, std::function<void()> handler);
