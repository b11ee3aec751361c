// SPDX-License-Identifier: GPL-3.0-or-later
#include "steuerzentrum.h"

#include "modul1.h"
#include "picture.h"
#include "screens.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QVBoxLayout>

using namespace Modul1;

namespace {

struct Topic {
    const char *text;
    int blanks;
    const char *reference;
};

constexpr std::array<Topic, 11> kTopics = {{
    {"Fragen 1 bis 5", 80, "- Seite 1"},
    {"Fragen 6 bis 10", 77, "- Seite 2"},
    {"Fragen 11 bis 15", 75, "- Seite 3"},
    {"Fragen 16 bis 20", 75, "- Seite 4"},
    {"Fragen 21 bis 25", 75, "- Seite 5"},
    {"Fragen 26 bis 30", 75, "- Seite 6"},
    {"Fragen 31 bis 35", 75, "- Seite 7"},
    {"Fragen 36 bis 40", 75, "- Seite 8"},
    {"Fragen 41 bis 45", 75, "- Seite 9"},
    {"Fragen 46 bis 50", 75, "- Seite 10"},
    {"Abschlusstest", 80, "- Seite 11"},
}};

const QString kInstruction = QStringLiteral(
    "<p style='margin:0'>Du kannst das Lernprogramm ganz von vorn beginnen: Klicke dazu auf "
    "<b>„Lernprogramm-Start“</b>.</p>"
    "<p style='margin-top:6px; margin-bottom:0'>Du kannst aber auch an jeder beliebigen Stelle "
    "einsteigen: Klicke dazu unten auf das gewünschte Thema.</p>");

} // namespace

QString topicCaption(int Index) {
    if (Index < 0 || Index >= static_cast<int>(kTopics.size()))
        return {};
    const Topic &t = kTopics.at(static_cast<std::size_t>(Index));
    return QString::fromUtf8(t.text) + QString(t.blanks, QLatin1Char(' ')) +
           QString::fromUtf8(t.reference);
}

TopicOption::TopicOption(const QString &caption, QWidget *parent)
    : QRadioButton(caption, parent) {
    static const QRegularExpression run(QStringLiteral(" {2,}"));
    const QRegularExpressionMatch m = run.match(caption);
    if (m.hasMatch()) {
        topic_ = caption.left(m.capturedStart());
        reference_ = caption.mid(m.capturedEnd());
    } else {
        topic_ = caption;
    }
    setAccessibleName(topic_ + QLatin1Char(' ') + reference_);
}

int TopicOption::textStart() const {
    QStyleOptionButton opt;
    initStyleOption(&opt);
    opt.rect = QRect(0, 0, 1000, 40);
    return style()->subElementRect(QStyle::SE_RadioButtonContents, &opt, this).left();
}

int TopicOption::naturalReferenceColumn() const {
    return textStart() +
           fontMetrics().horizontalAdvance(text().left(text().size() - reference_.size()));
}

void TopicOption::setReferenceColumn(int x) {
    column_ = x;
    updateGeometry();
    update();
}

QSize TopicOption::sizeHint() const {
    QSize size = QRadioButton::sizeHint();
    const int needed = column_ + fontMetrics().horizontalAdvance(reference_) + 4;
    size.setWidth(qMax(size.width(), needed));
    return size;
}

void TopicOption::paintEvent(QPaintEvent *) {
    QStylePainter painter(this);
    QStyleOptionButton opt;
    initStyleOption(&opt);
    opt.text = topic_;
    painter.drawControl(QStyle::CE_RadioButton, opt);
    const QRect contents = style()->subElementRect(QStyle::SE_RadioButtonContents, &opt, this);
    const int column = column_ > 0 ? column_ : naturalReferenceColumn();
    const QRect referenceRect(column, contents.top(), width() - column, contents.height());
    painter.drawItemText(referenceRect, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                         reference_, foregroundRole());
}

bool TopicOption::hitButton(const QPoint &pos) const {
    // The whole line up to the end of the page reference chooses the topic.
    const int end = column_ + fontMetrics().horizontalAdvance(reference_) + 4;
    return QRect(0, 0, end, height()).contains(pos) || QRadioButton::hitButton(pos);
}

void TopicOption::keyPressEvent(QKeyEvent *e) {
    int step = 0;
    switch (e->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        step = -1;
        break;
    case Qt::Key_Down:
    case Qt::Key_Right:
        step = 1;
        break;
    default:
        QRadioButton::keyPressEvent(e);
        return;
    }
    const QList<TopicOption *> topics =
        parentWidget()->findChildren<TopicOption *>(Qt::FindDirectChildrenOnly);
    const qsizetype here = topics.indexOf(this);
    if (here < 0 || topics.size() < 2)
        return;
    const qsizetype next = (here + step + topics.size()) % topics.size();
    topics.at(next)->setFocus(step > 0 ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

Steuerzentrum::Steuerzentrum(QWidget *parent)
    : Form(ScreenId::Steuerzentrum, parent) {
    setWindowTitle(windowCaption(105, QStringLiteral("Steuerzentrum")));
    resize(800, 600);

    QWidget *central = tintedCentralWidget(this);

    Label1 = headingLabel(QStringLiteral("Wo möchtest du starten?"), 20, central);

    Image1 = new Picture(kInstruction, central);
    QFont pictureFont = Image1->font();
    pictureFont.setPointSize(11);
    Image1->setFont(pictureFont);
    Image1->setFrameStyle(QFrame::Box | QFrame::Plain);

    Command2 = new QPushButton(QStringLiteral("Lernprogramm-Start"), central);
    QFont buttonFont = Command2->font();
    buttonFont.setPointSize(12);
    buttonFont.setBold(true);
    Command2->setFont(buttonFont);
    Command2->setMinimumSize(200, 48);
    setBackColour(Command2, lightGrey());

    Frame1 = new QGroupBox(QStringLiteral("Kelvora"), central);
    QFont frameFont = Frame1->font();
    frameFont.setPointSize(11);
    Frame1->setFont(frameFont);
    auto *options = new QVBoxLayout(Frame1);
    options->setContentsMargins(24, 14, 24, 14);
    options->setSpacing(6);
    optionGroup_ = new QButtonGroup(this);
    int column = 0;
    for (std::size_t i = 0; i < Option1.size(); ++i) {
        const int index = static_cast<int>(i);
        Option1[i] = new TopicOption(topicCaption(index), Frame1);
        Option1[i]->setObjectName(QStringLiteral("Option1_%1").arg(index));
        optionGroup_->addButton(Option1[i], index);
        options->addWidget(Option1[i]);
        column = qMax(column, Option1[i]->naturalReferenceColumn());
        connect(Option1[i], &QAbstractButton::toggled, this, [this, index](bool selected) {
            if (selected)
                Option1_Click(index);
        });
    }
    for (TopicOption *option : Option1)
        option->setReferenceColumn(column);

    Label5 = new QLabel(central);

    auto *layout = new QVBoxLayout(central);
    layout->setContentsMargins(32, 20, 32, 16);
    layout->setSpacing(14);
    layout->addWidget(Label1);
    auto *startRow = new QHBoxLayout;
    startRow->setSpacing(20);
    startRow->addWidget(Image1, 1);
    startRow->addWidget(Command2, 0, Qt::AlignVCenter);
    layout->addLayout(startRow);
    layout->addWidget(Frame1, 0, Qt::AlignHCenter);
    layout->addWidget(Label5);
    layout->addStretch(1);

    connect(Command2, &QPushButton::clicked, this, &Steuerzentrum::Command2_Click);
    setTabOrder(Command2, Option1[0]);
}

void Steuerzentrum::Form_Activate() {
    // Clearing an option is no choice: the group may hold none selected only while it is not
    // exclusive, and a cleared option raises no click.
    optionGroup_->setExclusive(false);
    for (TempIndex = 0; TempIndex <= 10; ++TempIndex)
        Option1.at(static_cast<std::size_t>(TempIndex))->setChecked(false);
    optionGroup_->setExclusive(true);
}

void Steuerzentrum::Option1_Click(int Index) {
    if (Index >= 0 && Index <= 9)
        Screens::show(pageScreen(Index + 1));
    else if (Index == 10)
        Screens::show(ScreenId::Qel11);
    else
        return;
    Screens::unload(this);
}

void Steuerzentrum::Command2_Click() {
    Screens::show(ScreenId::Qel1);
    Screens::unload(this);
}
