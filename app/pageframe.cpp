// SPDX-License-Identifier: GPL-3.0-or-later
#include "pageframe.h"

#include "form.h"
#include "screens.h"

#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <functional>

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

// A panel that appears over the page takes the keyboard focus on its first button, so that a
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

QPushButton *frameButton(const QString &caption, QWidget *parent) {
    auto *button = new QPushButton(caption, parent);
    button->setMinimumHeight(32);
    return button;
}

} // namespace

namespace PageFrame {

const std::array<QString, 11> kOverviewLines = {
    QStringLiteral("Seite 1 (Frage 1 -  5)"),   QStringLiteral("Seite 2 (Frage 6 - 10)"),
    QStringLiteral("Seite 3 (Frage 11 - 15)"),  QStringLiteral("Seite 4 (Frage 16 - 20)"),
    QStringLiteral("Seite 5 (Frage 21 - 25)"),  QStringLiteral("Seite 6 (Frage 26 - 30)"),
    QStringLiteral("Seite 7 (Frage 31 - 35)"),  QStringLiteral("Seite 8 (Frage 36 - 40)"),
    QStringLiteral("Seite 9 (Frage 41 - 45)"),  QStringLiteral("Seite 10 (Frage 46 - 50)"),
    QStringLiteral("Seite 11 (Abschlusstest)"),
};

void placeOver(QWidget *page, QWidget *panel, std::function<QRect(const QRect &, QSize)> place) {
    new Placement(page, panel, std::move(place));
}

Menus buildMenus(QMainWindow *page, bool withPointsEntry) {
    Menus m;
    QMenuBar *bar = page->menuBar();
    m.mnuAns = bar->addMenu(QStringLiteral("&Ansicht"));
    m.mnuSteuer = m.mnuAns->addAction(QStringLiteral("&Erklärung Steuerbuttons"));
    m.mnuSteuer->setCheckable(true);
    m.mnuSteuer->setChecked(true);
    if (withPointsEntry) {
        m.mnuPunkt = m.mnuAns->addAction(QStringLiteral("&Punktanzeige"));
        m.mnuPunkt->setCheckable(true);
        m.mnuPunkt->setChecked(true);
    }
    m.mnuWo = m.mnuAns->addAction(QStringLiteral("&Wo bin ich?"));

    m.mnuInfo = bar->addMenu(QStringLiteral("&Info"));
    m.mnuAWeise = m.mnuInfo->addAction(QStringLiteral("&Arbeitsweise"));
    m.mnuAuflösung = m.mnuInfo->addAction(QStringLiteral("&Bildschirmauflösung ändern"));
    m.mnuVoraus = m.mnuInfo->addAction(QStringLiteral("&Voraussetzungen und Besonderheiten"));
    m.mnuAutor = m.mnuInfo->addAction(QStringLiteral("A&utor und Version"));
    QObject::connect(m.mnuAWeise, &QAction::triggered, page, &mnuAWeise_Click);
    QObject::connect(m.mnuAuflösung, &QAction::triggered, page, &mnuAuflösung_Click);
    QObject::connect(m.mnuVoraus, &QAction::triggered, page, &mnuVoraus_Click);
    QObject::connect(m.mnuAutor, &QAction::triggered, page, &mnuAutor_Click);
    return m;
}

void connectCheckEntry(QAction *entry, QObject *context, std::function<void()> handler) {
    QObject::connect(entry, &QAction::triggered, context, [entry, handler = std::move(handler)] {
        entry->setChecked(!entry->isChecked()); // undo the toggle Qt made on its own
        handler();
    });
}

void mnuAWeise_Click() {
    Screens::show(ScreenId::ArbWei);
}

void mnuAuflösung_Click() {
    Screens::show(ScreenId::Auflösung);
}

void mnuVoraus_Click() {
    Screens::show(ScreenId::Voraus);
}

void mnuAutor_Click() {
    Screens::show(ScreenId::Autor);
}

ExitFrame buildExitFrame(QWidget *page) {
    ExitFrame f;
    f.Picture10 = new QWidget(page);
    f.Picture10->setObjectName(QStringLiteral("Picture10"));
    f.Picture10->setAutoFillBackground(true);
    QPalette cover = f.Picture10->palette();
    cover.setColor(QPalette::Window, QColor(0, 0, 64, 150));
    f.Picture10->setPalette(cover);

    f.Frame10 = new QGroupBox(QStringLiteral("Wie möchtest du beenden?"), page);
    f.Frame10->setObjectName(QStringLiteral("Frame10"));
    f.Frame10->setAutoFillBackground(true);
    f.Label10 = new QLabel(QStringLiteral("Ich möchte beim nächsten Programmstart ..."), f.Frame10);
    f.Command11 = frameButton(QStringLiteral("... hier weiterarbeiten"), f.Frame10);
    f.Command10 = frameButton(QStringLiteral("... von vorn beginnen"), f.Frame10);
    f.Command12 = frameButton(QStringLiteral("Ich möchte nicht beenden"), f.Frame10);
    auto *layout = new QVBoxLayout(f.Frame10);
    layout->setContentsMargins(18, 18, 18, 18);
    layout->setSpacing(8);
    layout->addWidget(f.Label10);
    layout->addWidget(f.Command11);
    layout->addWidget(f.Command10);
    layout->addSpacing(14);
    layout->addWidget(f.Command12);
    new Placement(page, f.Frame10, [](const QRect &area, QSize hint) {
        return centred(area, hint.expandedTo(QSize(340, 0)));
    });
    new Placement(
        page, f.Picture10, [](const QRect &area, QSize) { return area; }, f.Frame10);

    new FocusOnShow(f.Frame10, f.Command11);
    f.Picture10->hide();
    f.Frame10->hide();
    return f;
}

Overview buildOverview(QWidget *page) {
    Overview o;
    o.Shape6 = new QWidget(page);
    o.Shape6->setObjectName(QStringLiteral("Shape6"));
    o.Shape6->setAutoFillBackground(true);
    QPalette border = o.Shape6->palette();
    border.setColor(QPalette::Window, QColor(0, 96, 160));
    o.Shape6->setPalette(border);

    o.Frame2 = new QGroupBox(QStringLiteral("Wo bin ich?"), page);
    o.Frame2->setObjectName(QStringLiteral("Frame2"));
    o.Frame2->setAutoFillBackground(true);
    auto *layout = new QVBoxLayout(o.Frame2);
    layout->setContentsMargins(14, 14, 14, 14);
    layout->setSpacing(2);
    for (std::size_t i = 0; i < o.lines.size(); ++i) {
        auto *line = new QPushButton(kOverviewLines[i], o.Frame2);
        line->setFlat(true);
        line->setStyleSheet(QStringLiteral("text-align: left; padding: 3px 8px;"));
        line->setCursor(Qt::PointingHandCursor);
        line->setObjectName(QStringLiteral("Label11_%1").arg(i));
        o.lines[i] = line;
        layout->addWidget(line);
    }
    o.Label1 = new QLabel(
        QStringLiteral("(Durch Anklicken einer Zeile kannst du dorthin springen.)"), o.Frame2);
    o.Label1->setWordWrap(true);
    layout->addWidget(o.Label1);
    o.Command6 = frameButton(QStringLiteral("Schließen"), o.Frame2);
    layout->addWidget(o.Command6);

    const auto place = [](const QRect &area, QSize hint) {
        const QSize size = hint.expandedTo(QSize(300, 0));
        return centred(area, size);
    };
    new Placement(page, o.Frame2, place);
    new Placement(
        page, o.Shape6,
        [place, frame = o.Frame2](const QRect &area, QSize) {
            return place(area, frame->sizeHint()).adjusted(-6, -6, 6, 6);
        },
        o.Frame2);

    new FocusOnShow(o.Frame2, o.lines[0]);
    o.Shape6->hide();
    o.Frame2->hide();
    return o;
}

} // namespace PageFrame
