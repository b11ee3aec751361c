// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <QSize>
#include <QString>

#include <array>
#include <functional>

class QAction;
class QGroupBox;
class QLabel;
class QMainWindow;
class QMenu;
class QObject;
class QPushButton;
class QWidget;

// What every page, lesson pages and final test alike, carries around its own content: the menu
// bar, the exit frame "Wie möchtest du beenden?" and the page overview "Wo bin ich?". Each page
// builds these parts and connects them to its own handlers.
namespace PageFrame {

struct Menus {
    QMenu *mnuAns = nullptr;
    QAction *mnuSteuer = nullptr;
    QAction *mnuPunkt = nullptr; // lesson pages only
    QAction *mnuWo = nullptr;
    QMenu *mnuInfo = nullptr;
    QAction *mnuAWeise = nullptr;
    QAction *mnuAuflösung = nullptr;
    QAction *mnuVoraus = nullptr;
    QAction *mnuAutor = nullptr;
};
// The "&Info" entries open their information screens at once; the "&Ansicht" entries are left
// to the page.
Menus buildMenus(QMainWindow *page, bool withPointsEntry);

// Connects a check-marked entry to its handler. The handler alone sets and clears the mark, so
// the mark it reads is the one the pupil saw when choosing the entry.
void connectCheckEntry(QAction *entry, QObject *context, std::function<void()> handler);

// Shows the information screen of an "&Info" entry, or brings it forward when it is open.
void mnuAWeise_Click();
void mnuAuflösung_Click();
void mnuVoraus_Click();
void mnuAutor_Click();

// Keeps a panel that is not part of the page's layout where place() puts it, as the page changes
// size and whenever the panel appears. Showing such a panel costs the page no new layout.
void placeOver(QWidget *page, QWidget *panel, std::function<QRect(const QRect &, QSize)> place);

struct ExitFrame {
    QWidget *Picture10 = nullptr; // cover over the page behind the frame
    QGroupBox *Frame10 = nullptr;
    QLabel *Label10 = nullptr;
    QPushButton *Command11 = nullptr; // "... hier weiterarbeiten"
    QPushButton *Command10 = nullptr; // "... von vorn beginnen"
    QPushButton *Command12 = nullptr; // "Ich möchte nicht beenden"
};
ExitFrame buildExitFrame(QWidget *page);

// The lines of the page overview and the page each one opens (index + 1).
extern const std::array<QString, 11> kOverviewLines;

struct Overview {
    QWidget *Shape6 = nullptr;
    QGroupBox *Frame2 = nullptr;
    std::array<QPushButton *, 11> lines{};
    QLabel *Label1 = nullptr;
    QPushButton *Command6 = nullptr; // "Schließen"
};
Overview buildOverview(QWidget *page);

} // namespace PageFrame
