// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue.h"
#include "form.h"
#include "pageframe.h"

#include <QList>

#include <array>

class Picture;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

// One lesson page: five questions, one at a time, answered by typing A, B or C. The ten pages
// Qel1..Qel10 are instances of this class, each configured by its entry of the page catalogue.
class LessonPage : public Form {
    Q_OBJECT
public:
    explicit LessonPage(int page, QWidget *parent = nullptr);

    void Form_Load() override;
    void Form_Activate() override;

    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command10_Click();
    void Command11_Click();
    void Command12_Click();
    void Label11_Click(int Index);
    void Text1_Change();
    void Text1_Click();
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void mnuPunkt_Click();
    void mnuSteuer_Click();
    void mnuWo_Click();
    void Tempo();

    const PageInfo &info() const { return info_; }

    // Controls, named as on the page.
    std::array<Picture *, 5> Image1{}; // questions
    std::array<Picture *, 5> Image2{}; // options
    QList<Picture *> Image3;           // feedback, 0 to the page's highest feedback index
    Picture *Image4 = nullptr;         // explanation of the control buttons
    QLineEdit *Text1 = nullptr;
    QLabel *Label2 = nullptr;
    QLabel *Label3 = nullptr;
    QLabel *Label4 = nullptr;
    QLabel *Label5 = nullptr;
    QLabel *Label6 = nullptr;
    QLabel *Label7 = nullptr;
    QLabel *Label8 = nullptr;        // pace note
    QLabel *Label9 = nullptr;        // points text
    QLabel *Label12 = nullptr;       // page 1 only: where the explanation can be switched on again
    QPushButton *Command1 = nullptr; // next question
    QPushButton *Command2 = nullptr; // "<<"
    QPushButton *Command3 = nullptr; // end
    QPushButton *Command4 = nullptr; // ">>"
    QPushButton *Command5 = nullptr; // try again
    QTimer *Timer1 = nullptr;
    QTimer *Timer2 = nullptr; // page 1 only
    QTimer *Timer3 = nullptr; // page 1 only
    PageFrame::Menus menus;
    PageFrame::ExitFrame exitFrame;
    PageFrame::Overview overview;

private:
    void EvaluateAnswer();
    void FindCurrentQuestion();
    void CheckAnswerPace(int minimumSeconds);
    bool anyVisible(const std::vector<int> &pictures) const;
    void buildControls();

    const PageInfo &info_;
};

// The pace note: one caption in which runs of blanks make the line breaks.
extern const QString kPaceNote;
// The pace note as shown: heading, paragraph and closing line.
QString paceNoteLines(const QString &caption);

// Makes the ten lesson pages known to the screen layer.
void registerLessonPages();
