// SPDX-License-Identifier: GPL-3.0-or-later
#include "pagebase.h"

#include "course.h"
#include "picture.h"
#include "screens.h"
#include "textfiles.h"
#include "theme.h"
#include "topics.h"
#include "widgets.h"
#include "zoom.h"

#include <QAction>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QStyleOptionButton>
#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <QTimer>
#include <QVBoxLayout>

namespace {

// Keeps a floating panel placed over its page as the page changes size.
class Placement : public QObject {
public:
    Placement(QWidget *page, QWidget *panel, std::function<QRect(const QRect &, QSize)> place,
              QWidget *beneath = nullptr)
        : QObject(panel)
        , page_(page)
        , panel_(panel)
        , beneath_(beneath)
        , place_(std::move(place)) {
        page->installEventFilter(this);
        panel->installEventFilter(this);
        apply();
    }

protected:
    bool eventFilter(QObject *watched, QEvent *e) override {
        // A hidden panel too: where it appears then is where it is, and nothing else is drawn.
        if ((watched == page_ && e->type() == QEvent::Resize) ||
            (watched == panel_ && e->type() == QEvent::Show))
            apply();
        return false;
    }

private:
    void apply() {
        panel_->setGeometry(place_(page_->rect(), panel_->sizeHint()));
        panel_->raise();
        if (beneath_)
            panel_->stackUnder(beneath_);
    }

    QWidget *page_;
    QWidget *panel_;
    QWidget *beneath_; // the panel stays just below this one
    std::function<QRect(const QRect &, QSize)> place_;
};

// A panel that appears over the page takes the keyboard focus on the given control, so that a
// pupil working with the keyboard lands in it rather than on the covered page.
class FocusOnShow : public QObject {
public:
    FocusOnShow(QWidget *panel, QWidget *first)
        : QObject(panel)
        , first_(first) {
        panel->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject *, QEvent *e) override {
        if (e->type() == QEvent::Show)
            first_->setFocus();
        return false;
    }

private:
    QWidget *first_;
};

QRect centred(const QRect &area, QSize size) {
    size = size.boundedTo(area.size());
    return {area.center().x() - size.width() / 2, area.center().y() - size.height() / 2,
            size.width(), size.height()};
}

// A plain area in one colour: the cover behind the exit frame, the border around the overview.
QWidget *colourArea(const QColor &colour, const char *formName, QWidget *parent) {
    auto *area = new QWidget(parent);
    area->setObjectName(QString::fromUtf8(formName));
    area->setAutoFillBackground(true);
    QPalette palette = area->palette();
    palette.setColor(QPalette::Window, colour);
    area->setPalette(palette);
    return area;
}

// A framed panel that appears over the page, filled in its own colour. Its frame and title keep
// a margin from the panel's edges.
class PanelFrame : public QGroupBox {
public:
    PanelFrame(const QString &title, QWidget *parent)
        : QGroupBox(title, parent) {}

protected:
    void paintEvent(QPaintEvent *) override {
        QStylePainter painter(this);
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        // The style places the title at the top left corner of the widget, whatever the rect.
        const int margin = Zoom::on(this).px(kMargin);
        painter.translate(margin, margin);
        option.rect.adjust(0, 0, -2 * margin, -2 * margin);
        painter.drawComplexControl(QStyle::CC_GroupBox, option);
    }

private:
    static constexpr int kMargin = 6;
};

QGroupBox *panelFrame(const QString &title, const char *formName, QWidget *parent) {
    auto *frame = new PanelFrame(title, parent);
    frame->setObjectName(QString::fromUtf8(formName));
    frame->setAutoFillBackground(true);
    return frame;
}

QPushButton *panelButton(const QString &caption, const QString &formName, QWidget *parent) {
    auto *button = new QPushButton(caption, parent);
    button->setObjectName(formName);
    Zoom::on(parent).setMinimumHeight(button, 32);
    return button;
}

// A line of the page overview: a flat button whose caption starts at its left edge, like a line
// of text, with a little room around it.
class OverviewLine : public QPushButton {
public:
    OverviewLine(const QString &caption, QWidget *parent)
        : QPushButton(caption, parent) {
        setFlat(true);
        setCursor(Qt::PointingHandCursor);
    }

    QSize sizeHint() const override {
        const Zoom &zoom = Zoom::on(this);
        return {fontMetrics().horizontalAdvance(text()) + 2 * zoom.px(kPadding.width()),
                fontMetrics().height() + 2 * zoom.px(kPadding.height())};
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *) override {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text.clear();
        painter.drawControl(QStyle::CE_PushButton, option);
        const int padding = Zoom::on(this).px(kPadding.width());
        painter.drawItemText(rect().adjusted(padding, 0, -padding, 0),
                             Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(), text(),
                             QPalette::ButtonText);
    }

private:
    static constexpr QSize kPadding{8, 3};
};

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

void placeOver(QWidget *page, QWidget *panel, std::function<QRect(const QRect &, QSize)> place) {
    new Placement(page, panel, std::move(place));
}

PageBase::PageBase(ScreenId id, int pageNumber, double zoomFactor)
    : Form(id, zoomFactor)
    , pageNumber_(pageNumber) {}

void PageBase::buildPageParts(QWidget *central, const PageParts &parts) {
    buildMenus(parts.withPointsEntry);

    endButton = pictureButton(QStringLiteral(":/button-end.svg"), QStringLiteral("Beenden"),
                              central, parts.iconSize);
    endButton->setObjectName(QStringLiteral("Command3"));
    setActive(endButton, true);

    explanationPicture = new Picture(parts.explanation, central);
    explanationPicture->setObjectName(parts.explanationName);

    buildExitFrame(central);
    buildOverview(central);
    for (std::size_t i = 0; i < overviewLines.size(); ++i)
        overviewLines[i]->setObjectName(QStringLiteral("%1_%2").arg(parts.overviewLineName).arg(i));

    connect(endButton, &QPushButton::clicked, this, &PageBase::openExitFrame);
    connect(restartButton, &QPushButton::clicked, this, &PageBase::restartFromBeginning);
    connect(resumeButton, &QPushButton::clicked, this, &PageBase::resumeHere);
    connect(stayButton, &QPushButton::clicked, this, &PageBase::closeExitFrame);
    connect(overviewCloseButton, &QPushButton::clicked, this, &PageBase::closeOverview);
    for (std::size_t i = 0; i < overviewLines.size(); ++i) {
        connect(overviewLines[i], &QPushButton::clicked, this,
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

void PageBase::buildExitFrame(QWidget *central) {
    exitCover = colourArea(Theme::kExitCover, "Picture10", central);
    exitFrame = panelFrame(QStringLiteral("Wie möchtest du beenden?"), "Frame10", central);
    exitHeading =
        new QLabel(QStringLiteral("Ich möchte beim nächsten Programmstart ..."), exitFrame);
    exitHeading->setObjectName(QStringLiteral("Label10"));
    resumeButton = panelButton(QStringLiteral("... hier weiterarbeiten"),
                               QStringLiteral("Command11"), exitFrame);
    restartButton = panelButton(QStringLiteral("... von vorn beginnen"),
                                QStringLiteral("Command10"), exitFrame);
    stayButton = panelButton(QStringLiteral("Ich möchte nicht beenden"),
                             QStringLiteral("Command12"), exitFrame);
    // A listener hears the two choices as the sentences they finish.
    for (QPushButton *choice : {resumeButton, restartButton}) {
        choice->setAccessibleName(exitHeading->text().chopped(3).trimmed() +
                                  choice->text().mid(QStringLiteral("...").size()));
    }
    Zoom &z = zoom();
    auto *layout = new QVBoxLayout(exitFrame);
    z.setMargins(layout, 18);
    z.setSpacing(layout, 8);
    layout->addWidget(exitHeading);
    layout->addWidget(resumeButton);
    layout->addWidget(restartButton);
    z.addSpacing(layout, 14);
    layout->addWidget(stayButton);
    new Placement(central, exitFrame, [&z](const QRect &area, QSize hint) {
        return centred(area, hint.expandedTo(QSize(z.px(340), 0)));
    });
    new Placement(
        central, exitCover, [](const QRect &area, QSize) { return area; }, exitFrame);

    // The harmless choice has the focus: a stray Enter or Space keeps the programme running.
    new FocusOnShow(exitFrame, harmlessControl(exitFrame));
    exitCover->hide();
    exitFrame->hide();
}

void PageBase::buildOverview(QWidget *central) {
    overviewBorder = colourArea(Theme::kOverviewBorder, "Shape6", central);
    overviewFrame = panelFrame(QStringLiteral("Wo bin ich?"), "Frame2", central);
    Zoom &z = zoom();
    auto *layout = new QVBoxLayout(overviewFrame);
    z.setMargins(layout, 14);
    z.setSpacing(layout, 2);
    for (std::size_t i = 0; i < overviewLines.size(); ++i) {
        auto *line = new OverviewLine(Topics::overviewLine(static_cast<int>(i)), overviewFrame);
        overviewLines[i] = line;
        layout->addWidget(line);
    }
    overviewNote = new QLabel(
        QStringLiteral("(Durch Anklicken einer Zeile kannst du dorthin springen.)"), overviewFrame);
    overviewNote->setWordWrap(true);
    layout->addWidget(overviewNote);
    overviewCloseButton =
        panelButton(QStringLiteral("Schließen"), QStringLiteral("Command6"), overviewFrame);
    layout->addWidget(overviewCloseButton);

    const auto place = [&z](const QRect &area, QSize hint) {
        return centred(area, hint.expandedTo(QSize(z.px(300), 0)));
    };
    new Placement(central, overviewFrame, place);
    new Placement(
        central, overviewBorder,
        [place, &z, frame = overviewFrame](const QRect &area, QSize) {
            const int border = z.px(6);
            return place(area, frame->sizeHint()).adjusted(-border, -border, border, border);
        },
        overviewFrame);

    // "Schließen" has the focus: a stray Enter or Space only closes the overview again, while
    // a line, this page's too, loads its page afresh.
    new FocusOnShow(overviewFrame, harmlessControl(overviewFrame));
    // A screen reader says the note with "Schließen".
    overviewCloseButton->setAccessibleDescription(overviewNote->text());
    overviewBorder->hide();
    overviewFrame->hide();
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
    if (!overviewFrame->isHidden()) {
        overviewBorder->hide();
        overviewFrame->hide();
    } else {
        focusBeforePanel_ = focusWidget();
    }
    exitFrame->show();
    exitCover->show();
    setBandTint(Theme::kExitCover);
}

void PageBase::restartFromBeginning() {
    course.currentPage = 50;
    writeStartPosition(course.startFilePath, course.currentPage, numbersAfterRestart());
    Screens::endProgramme();
}

void PageBase::resumeHere() {
    writeStartPosition(course.startFilePath, course.currentPage, numbersAfterResume());
    Screens::endProgramme();
}

void PageBase::closeExitFrame() {
    exitFrame->hide();
    exitCover->hide();
    setBandTint({});
    focusAfterExitFrame();
}

void PageBase::openOverview() {
    // One panel at a time: the overview takes the exit frame's place.
    if (!exitFrame->isHidden()) {
        exitFrame->hide();
        exitCover->hide();
        setBandTint({});
    } else if (overviewFrame->isHidden()) {
        focusBeforePanel_ = focusWidget();
    }
    overviewBorder->show();
    overviewFrame->show();
}

void PageBase::closeOverview() {
    overviewBorder->hide();
    overviewFrame->hide();
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

QWidget *PageBase::panelInFront() const {
    if (!overviewFrame->isHidden())
        return overviewFrame;
    if (!exitFrame->isHidden())
        return exitFrame;
    return nullptr;
}

QWidget *PageBase::harmlessControl(const QWidget *panel) const {
    return panel == exitFrame ? stayButton : overviewCloseButton;
}

bool PageBase::closeOnEscape() {
    QWidget *panel = panelInFront();
    if (panel == overviewFrame)
        closeOverview(); // as "Schließen"
    else if (panel == exitFrame)
        closeExitFrame(); // as "Ich möchte nicht beenden"
    return panel != nullptr;
}

bool PageBase::focusNextPrevChild(bool next) {
    QWidget *panel = panelInFront();
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
        harmlessControl(panel)->setFocus(Qt::OtherFocusReason);
        return true;
    }
    const qsizetype count = stops.size();
    stops.at((here + (next ? 1 : count - 1)) % count)
        ->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}
