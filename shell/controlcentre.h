// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"
#include "topics.h"

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
class ControlCentre : public Form {
    Q_OBJECT
public:
    explicit ControlCentre(double zoomFactor);

    // Form_Activate: no topic is chosen on arrival.
    void onActivate() override;
    QList<ScreenId> likelyNext() const override { return {ScreenId::Page1}; }
    // Option1_Click: opens the page of the chosen topic.
    void openTopic(int index);
    // Command2_Click, "Lernprogramm-Start".
    void startCourse();

    QLabel *titleLabel = nullptr;                       // Label1 "Wo möchtest du starten?"
    Picture *instructionPicture = nullptr;              // Image1
    QPushButton *startButton = nullptr;                 // Command2 "Lernprogramm-Start"
    QGroupBox *topicFrame = nullptr;                    // Frame1
    std::array<TopicOption *, Topics::kPages> topics{}; // Option1(0..10)
    QLabel *emptyLabel = nullptr;                       // Label5, empty

private:
    QButtonGroup *topicGroup_ = nullptr;
};
