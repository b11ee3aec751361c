// SPDX-License-Identifier: GPL-3.0-or-later
#include "controlcentre.h"

#include "keyboard.h"
#include "picture.h"
#include "screens.h"
#include "theme.h"
#include "topics.h"
#include "widgets.h"
#include "zoom.h"

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

namespace {

const QString kInstruction = QStringLiteral(
    "<p style='margin:0'>Du kannst das Lernprogramm ganz von vorn beginnen: Klicke dazu auf "
    "<b>„Lernprogramm-Start“</b>.</p>"
    "<p style='margin-top:6px; margin-bottom:0'>Du kannst aber auch an jeder beliebigen Stelle "
    "einsteigen: Klicke dazu unten auf das gewünschte Thema.</p>");

} // namespace

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
    const int needed = column_ + fontMetrics().horizontalAdvance(reference_) + Zoom::on(this).px(4);
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
    const int end = column_ + fontMetrics().horizontalAdvance(reference_) + Zoom::on(this).px(4);
    return QRect(0, 0, end, height()).contains(pos) || QRadioButton::hitButton(pos);
}

void TopicOption::keyPressEvent(QKeyEvent *e) {
    if (!Keyboard::moveAmongOptions(this, e->key()))
        QRadioButton::keyPressEvent(e);
}

ControlCentre::ControlCentre(double zoomFactor)
    : Form(ScreenId::ControlCentre, zoomFactor) {
    setWindowTitle(
        Theme::windowCaption(Theme::kControlCentreCaptionBlanks, QStringLiteral("Steuerzentrum")));

    QWidget *central = tintedPage(this);
    Zoom &z = zoom();

    titleLabel = headingLabel(QStringLiteral("Wo möchtest du starten?"), 2.2, central);

    instructionPicture = new Picture(kInstruction, central);
    z.setFont(instructionPicture, 1.2);
    instructionPicture->setFrameStyle(QFrame::Box | QFrame::Plain);

    startButton = new QPushButton(QStringLiteral("Lernprogramm-Start"), central);
    z.setFont(startButton, 1.33, true);
    // Room on both sides of the caption, whatever the font.
    z.setMinimumSize(startButton, {224, 48});
    setBackColour(startButton, Theme::activeButton());
    // A screen reader says the question and the instruction with the button that has the focus on
    // arrival.
    startButton->setAccessibleDescription(titleLabel->text() + QLatin1Char(' ') +
                                          instructionPicture->plainText());

    topicFrame = new QGroupBox(QStringLiteral("Kelvora"), central);
    z.setFont(topicFrame, 1.2);
    auto *options = new QVBoxLayout(topicFrame);
    z.setMargins(options, 24, 14, 24, 14);
    z.setSpacing(options, 4);
    topicGroup_ = new QButtonGroup(this);
    for (std::size_t i = 0; i < topics.size(); ++i) {
        const int index = static_cast<int>(i);
        topics[i] = new TopicOption(Topics::topicCaption(index), topicFrame);
        topics[i]->setObjectName(QStringLiteral("Option1_%1").arg(index));
        topicGroup_->addButton(topics[i], index);
        options->addWidget(topics[i]);
        connect(topics[i], &QAbstractButton::toggled, this, [this, index](bool selected) {
            if (selected)
                openTopic(index);
        });
    }
    // The page references line up in one column, wherever the zoomed font puts the longest topic.
    z.follow(topicFrame, [this](const Zoom &) {
        int column = 0;
        for (TopicOption *option : topics)
            column = qMax(column, option->naturalReferenceColumn());
        for (TopicOption *option : topics)
            option->setReferenceColumn(column);
    });

    emptyLabel = new QLabel(central);

    auto *layout = new QVBoxLayout(central);
    z.setMargins(layout, 32, 20, 32, 16);
    z.setSpacing(layout, 14);
    layout->addWidget(titleLabel);
    auto *startRow = new QHBoxLayout;
    z.setSpacing(startRow, 20);
    startRow->addWidget(instructionPicture, 1);
    startRow->addWidget(startButton, 0, Qt::AlignVCenter);
    layout->addLayout(startRow);
    layout->addWidget(topicFrame, 0, Qt::AlignHCenter);
    layout->addWidget(emptyLabel);
    layout->addStretch(1);

    setFormNames({{titleLabel, "Label1"},
                  {instructionPicture, "Image1"},
                  {startButton, "Command2"},
                  {topicFrame, "Frame1"},
                  {emptyLabel, "Label5"}});
    connect(startButton, &QPushButton::clicked, this, &ControlCentre::startCourse);
}

void ControlCentre::onActivate() {
    // Clearing an option is no choice: the group may hold none selected only while it is not
    // exclusive, and a cleared option raises no click.
    topicGroup_->setExclusive(false);
    for (TopicOption *topic : topics)
        topic->setChecked(false);
    topicGroup_->setExclusive(true);
}

void ControlCentre::openTopic(int index) {
    if (index >= 0 && index <= 9)
        Screens::show(pageScreen(index + 1));
    else if (index == 10)
        Screens::show(ScreenId::FinalTest);
    else
        return;
    Screens::unload(this);
}

void ControlCentre::startCourse() {
    Screens::show(ScreenId::Page1);
    Screens::unload(this);
}
