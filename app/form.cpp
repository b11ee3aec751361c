// SPDX-License-Identifier: GPL-3.0-or-later
#include "form.h"

#include "screens.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QHash>
#include <QIcon>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

ScreenId pageScreen(int page) {
    if (page >= 1 && page <= 11)
        return static_cast<ScreenId>(static_cast<int>(ScreenId::Qel1) + page - 1);
    return ScreenId::Qel50;
}

Form::Form(ScreenId id, QWidget *parent)
    : QMainWindow(parent)
    , id_(id) {
    setAttribute(Qt::WA_DeleteOnClose, false);
}

bool Form::event(QEvent *e) {
    if (e->type() == QEvent::WindowActivate)
        Screens::activated(this);
    return QMainWindow::event(e);
}

void Form::closeEvent(QCloseEvent *e) {
    // The close box unloads the screen; the screen layer ends the programme once none is left.
    e->ignore();
    Screens::unload(this);
}

QString windowCaption(int blanks, const QString &title) {
    return QStringLiteral("Kelvora") + QString(blanks, QLatin1Char(' ')) + title;
}

QString captionOnScreen(const QString &caption, int lineRun, int paragraphRun) {
    QString shown;
    shown.reserve(caption.size());
    for (qsizetype i = 0; i < caption.size();) {
        if (caption.at(i) != u' ') {
            shown.append(caption.at(i++));
            continue;
        }
        qsizetype end = i;
        while (end < caption.size() && caption.at(end) == u' ')
            ++end;
        const qsizetype run = end - i;
        if (run >= paragraphRun)
            shown += QStringLiteral("\n\n");
        else if (run >= lineRun)
            shown += QLatin1Char('\n');
        else
            shown += QString(run, QLatin1Char(' '));
        i = end;
    }
    return shown;
}

QWidget *tintedCentralWidget(QMainWindow *window) {
    auto *central = new QWidget(window);
    central->setAutoFillBackground(true);
    QPalette background = central->palette();
    background.setColor(QPalette::Window, QColor(236, 242, 250));
    central->setPalette(background);
    window->setCentralWidget(central);
    return central;
}

QLabel *headingLabel(const QString &text, int pointSize, QWidget *parent) {
    auto *label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPointSize(pointSize);
    font.setBold(true);
    label->setFont(font);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor(0, 60, 120));
    label->setPalette(palette);
    return label;
}

QPushButton *pictureButton(const QString &icon, const QString &name, QWidget *parent,
                           int iconSize) {
    // One icon per picture for the whole run: its rendered sizes are kept with it.
    static QHash<QString, QIcon> icons;
    QIcon &shared = icons[icon];
    if (shared.isNull())
        shared = QIcon(icon);
    auto *button = new QPushButton(parent);
    button->setIcon(shared);
    button->setIconSize(QSize(iconSize, iconSize));
    button->setMinimumSize(iconSize + 30, iconSize + 16);
    button->setAccessibleName(name);
    button->setToolTip(name);
    return button;
}

QColor lightGrey() {
    return {224, 224, 224};
}

QColor buttonFace() {
    return QApplication::style()->standardPalette().color(QPalette::Button);
}

void setBackColour(QWidget *w, const QColor &colour) {
    QPalette p = w->palette();
    p.setColor(QPalette::Button, colour);
    w->setPalette(p);
}

void setActive(QAbstractButton *button, bool active) {
    button->setEnabled(active);
    setBackColour(button, active ? lightGrey() : buttonFace());
}
