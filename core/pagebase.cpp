// SPDX-License-Identifier: GPL-3.0-or-later
#include "pagebase.h"

#include "course.h"
#include "picture.h"
#include "screens.h"
#include "textfiles.h"
#include "theme.h"
#include "widgets.h"
#include "zoom.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QTimer>

namespace {

QAction *menuEntry(QMenu *menu, const QString &caption, const QString &formName) {
    QAction *entry = menu->addAction(caption);
    entry->setObjectName(formName);
    return entry;
}

} // namespace

QString explanationHtml(const QList<ExplanationItem> &items, int columns) {
    // With several columns a little room after each text keeps the columns apart.
    const QString gap = columns > 1 ? QStringLiteral("&nbsp;&nbsp;&nbsp;") : QString();
    QString html = QStringLiteral("<div style=\"font-size:10pt;\"><b>Die Steuerbuttons:</b>"
                                  "<table cellspacing=\"0\" cellpadding=\"%1\">")
                       .arg(columns > 1 ? 1 : 2);
    for (qsizetype i = 0; i < items.size(); i += columns) {
        html += QStringLiteral("<tr>");
        for (qsizetype j = i; j < i + columns; ++j) {
            if (j >= items.size()) {
                html += QStringLiteral("<td></td><td></td>");
                continue;
            }
            const ExplanationItem &item = items.at(j);
            const QString what =
                item.icon.isEmpty()
                    ? QStringLiteral("<b>%1</b>").arg(item.caption.toHtmlEscaped())
                    : QStringLiteral("<img src=\"%1\" width=\"26\" height=\"26\">").arg(item.icon);
            html += QStringLiteral("<td align=\"center\" valign=\"middle\">%1</td>"
                                   "<td valign=\"middle\">%2%3</td>")
                        .arg(what, item.text, gap);
        }
        html += QStringLiteral("</tr>");
    }
    return html + QStringLiteral("</table></div>");
}

void connectCheckEntry(QAction *entry, QObject *context, std::function<void()> handler) {
    QObject::connect(entry, &QAction::triggered, context, [entry, handler = std::move(handler)] {
        entry->setChecked(!entry->isChecked()); // undo the toggle Qt made on its own
        handler();
    });
}

PageBase::PageBase(ScreenId id, int pageNumber, Course &course, double zoomFactor)
    : Form(id, zoomFactor)
    , course_(course)
    , pageNumber_(pageNumber) {}

void PageBase::buildPageParts(QWidget *central, const PageParts &parts) {
    buildMenus(parts.withPointsEntry);

    endButton = pictureButton(QStringLiteral(":/button-end.svg"), QStringLiteral("Beenden"),
                              central, parts.iconSize);
    endButton->setObjectName(QStringLiteral("Command3"));
    setActive(endButton, true);

    explanationPicture = new Picture(parts.explanation, central);
    explanationPicture->setObjectName(parts.explanationName);

    exitFrame = new ExitFrame(central);
    overview = new Overview(central, parts.overviewLineName);

    connect(endButton, &QPushButton::clicked, this, &PageBase::openExitFrame);
    connect(exitFrame->restartButton, &QPushButton::clicked, this, &PageBase::restartFromBeginning);
    connect(exitFrame->resumeButton, &QPushButton::clicked, this, &PageBase::resumeHere);
    connect(exitFrame->stayButton, &QPushButton::clicked, this, &PageBase::closeExitFrame);
    connect(overview->closeButton, &QPushButton::clicked, this, &PageBase::closeOverview);
    for (std::size_t i = 0; i < overview->lines.size(); ++i) {
        connect(overview->lines[i], &QPushButton::clicked, this,
                [this, i] { jumpToPage(static_cast<int>(i)); });
    }
    connectCheckEntry(explanationEntry, this, [this] { toggleExplanation(); });
    connect(overviewEntry, &QAction::triggered, this, &PageBase::openOverview);
}

void PageBase::buildMenus(bool withPointsEntry) {
    QMenuBar *bar = menuBar();
    viewMenu = bar->addMenu(QStringLiteral("&Ansicht"));
    viewMenu->setObjectName(QStringLiteral("mnuAns"));
    explanationEntry = menuEntry(viewMenu, QStringLiteral("&Erklärung Steuerbuttons"),
                                 QStringLiteral("mnuSteuer"));
    explanationEntry->setCheckable(true);
    explanationEntry->setChecked(true);
    if (withPointsEntry) {
        pointsEntry =
            menuEntry(viewMenu, QStringLiteral("&Punktanzeige"), QStringLiteral("mnuPunkt"));
        pointsEntry->setCheckable(true);
        pointsEntry->setChecked(true);
    }
    overviewEntry = menuEntry(viewMenu, QStringLiteral("&Wo bin ich?"), QStringLiteral("mnuWo"));

    infoMenu = bar->addMenu(QStringLiteral("&Info"));
    infoMenu->setObjectName(QStringLiteral("mnuInfo"));
    workingMethodEntry =
        menuEntry(infoMenu, QStringLiteral("&Arbeitsweise"), QStringLiteral("mnuAWeise"));
    displayModeEntry = menuEntry(infoMenu, QStringLiteral("&Bildschirmauflösung ändern"),
                                 QStringLiteral("mnuAuflösung"));
    requirementsEntry = menuEntry(infoMenu, QStringLiteral("&Voraussetzungen und Besonderheiten"),
                                  QStringLiteral("mnuVoraus"));
    authorEntry =
        menuEntry(infoMenu, QStringLiteral("A&utor und Version"), QStringLiteral("mnuAutor"));
    // The drop-downs are windows of their own: their font follows the page's, as the bar's does.
    zoom().setFont(viewMenu, 1.0);
    zoom().setFont(infoMenu, 1.0);
    // Each shows its information screen, or brings it forward when it is open.
    const std::array<std::pair<QAction *, ScreenId>, 4> screens = {{
        {workingMethodEntry, ScreenId::WorkingMethod},
        {displayModeEntry, ScreenId::DisplayMode},
        {requirementsEntry, ScreenId::Requirements},
        {authorEntry, ScreenId::Author},
    }};
    for (const auto &[entry, screen] : screens)
        connect(entry, &QAction::triggered, this, [id = screen] { Screens::show(id); });
}

void PageBase::addExplanationTimers(int ms, const QString &hintName) {
    explanationHint = new QLabel(QStringLiteral("Erklärung der Buttons ein- und ausschalten: Menü: "
                                                "Ansicht / Erklärung Steuerbuttons"),
                                 explanationPicture->parentWidget());
    explanationHint->setObjectName(hintName);
    explanationHint->hide();
    explanationTimer = new QTimer(this);
    explanationTimer->setObjectName(QStringLiteral("Timer2"));
    explanationTimer->setInterval(ms);
    hintTimer = new QTimer(this);
    hintTimer->setObjectName(QStringLiteral("Timer3"));
    hintTimer->setInterval(ms);
    connect(explanationTimer, &QTimer::timeout, this, &PageBase::endExplanation);
    connect(hintTimer, &QTimer::timeout, this, &PageBase::endHint);
}

void PageBase::openExitFrame() {
    // One panel at a time: the exit frame takes the overview's place.
    if (!overview->isHidden()) {
        overview->border->hide();
        overview->hide();
    } else {
        focusBeforePanel_ = focusWidget();
    }
    exitFrame->show();
    exitFrame->cover->show();
    setBandTint(Theme::kExitCover);
}

void PageBase::restartFromBeginning() {
    course_.setCurrentPage(50);
    writeStartPosition(course_.startFilePath(), course_.currentPage(), numbersAfterRestart());
    Screens::endProgramme();
}

void PageBase::resumeHere() {
    writeStartPosition(course_.startFilePath(), course_.currentPage(), numbersAfterResume());
    Screens::endProgramme();
}

void PageBase::closeExitFrame() {
    exitFrame->hide();
    exitFrame->cover->hide();
    setBandTint({});
    focusAfterExitFrame();
}

void PageBase::openOverview() {
    // One panel at a time: the overview takes the exit frame's place.
    if (!exitFrame->isHidden()) {
        exitFrame->hide();
        exitFrame->cover->hide();
        setBandTint({});
    } else if (overview->isHidden()) {
        focusBeforePanel_ = focusWidget();
    }
    overview->border->show();
    overview->show();
}

void PageBase::closeOverview() {
    overview->border->hide();
    overview->hide();
    focusAfterOverview();
}

void PageBase::focusAfterOverview() {
    if (focusBeforePanel_ && focusBeforePanel_->isEnabled() && focusBeforePanel_->isVisibleTo(this))
        focusBeforePanel_->setFocus();
}

void PageBase::jumpToPage(int index) {
    // The line of this page loads it afresh: question 1 again, on page 1 with the counts at 0,
    // on page 11 a new test.
    Screens::unload(this);
    if (index >= 0 && index <= 10)
        Screens::show(pageScreen(index + 1));
}

void PageBase::toggleExplanation() {
    if (explanationEntry->isChecked()) {
        explanationPicture->hide();
        explanationEntry->setChecked(false);
    } else {
        explanationPicture->show();
        explanationEntry->setChecked(true);
    }
}

void PageBase::endExplanation() {
    explanationEntry->setChecked(false);
    explanationPicture->hide();
    explanationHint->show();
    hintTimer->start();
    explanationTimer->stop();
}

void PageBase::endHint() {
    explanationHint->hide();
    hintTimer->stop();
}

void PageBase::withdrawExplanation() {
    explanationPicture->hide();
    explanationEntry->setChecked(false);
}

PagePanel *PageBase::panelInFront() const {
    if (!overview->isHidden())
        return overview;
    if (!exitFrame->isHidden())
        return exitFrame;
    return nullptr;
}

bool PageBase::closeOnEscape() {
    const PagePanel *panel = panelInFront();
    if (panel == overview)
        closeOverview(); // as "Schließen"
    else if (panel == exitFrame)
        closeExitFrame(); // as "Ich möchte nicht beenden"
    return panel != nullptr;
}

bool PageBase::focusNextPrevChild(bool next) {
    const PagePanel *panel = panelInFront();
    if (!panel)
        return Form::focusNextPrevChild(next);
    QList<QWidget *> stops;
    for (QWidget *w : panel->findChildren<QWidget *>()) {
        if ((w->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && w->isEnabled() &&
            w->isVisibleTo(panel))
            stops.append(w);
    }
    const qsizetype here = stops.indexOf(focusWidget());
    if (here < 0) {
        // The focus comes into the panel from outside: to its harmless control.
        panel->harmlessControl()->setFocus(Qt::OtherFocusReason);
        return true;
    }
    const qsizetype count = stops.size();
    stops.at((here + (next ? 1 : count - 1)) % count)
        ->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}
