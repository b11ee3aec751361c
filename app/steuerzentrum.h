// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"

#include <QRadioButton>

#include <array>

class Picture;
class QButtonGroup;
class QGroupBox;
class QLabel;
class QPushButton;

// One topic of the control centre. Its caption is the topic, a run of blanks and the page
// reference; the reference is drawn in a column shared by all topics so that it lines up in any
// font. The arrow keys move between the topics without choosing one; Space chooses.
class TopicOption : public QRadioButton {
    Q_OBJECT
public:
    explicit TopicOption(const QString &caption, QWidget *parent = nullptr);

    QString topic() const { return topic_; }
    QString pageReference() const { return reference_; }
    // Where the page references start, measured from the left edge of the option.
    void setReferenceColumn(int x);
    int referenceColumn() const { return column_; }
    int naturalReferenceColumn() const;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *e) override;
    void keyPressEvent(QKeyEvent *e) override;
    bool hitButton(const QPoint &pos) const override;

private:
    int textStart() const;

    QString topic_;
    QString reference_;
    int column_ = 0;
};

// The control centre: the pupil starts at the beginning or at any of the eleven pages.
class Steuerzentrum : public Form {
    Q_OBJECT
public:
    explicit Steuerzentrum(QWidget *parent = nullptr);

    void Form_Activate() override;
    void Option1_Click(int Index);
    void Command2_Click();

    QLabel *Label1 = nullptr;
    Picture *Image1 = nullptr;
    QPushButton *Command2 = nullptr;
    QGroupBox *Frame1 = nullptr;
    std::array<TopicOption *, 11> Option1{};
    QLabel *Label5 = nullptr;

private:
    QButtonGroup *optionGroup_ = nullptr;
};

// Caption of option Index of the control centre: topic, blanks, page reference.
QString topicCaption(int Index);
