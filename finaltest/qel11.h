// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "form.h"
#include "pageframe.h"
#include "testcontent.h"

#include <QLabel>

#include <array>
#include <cstdint>

class Picture;
class QGroupBox;
class QPushButton;
class QRadioButton;
class QTimer;

// A label whose caption keeps its runs of blanks exactly; on screen each run starts a new line,
// a very long run an empty one.
class CaptionLabel : public QLabel {
public:
    explicit CaptionLabel(const QString &caption, QWidget *parent = nullptr);
    void setCaption(const QString &caption);
    const QString &caption() const { return caption_; }

private:
    QString caption_;
};

// Page 11, the final test: ten questions with four option buttons each, every click judged,
// counted and logged, then grading, printing, restarting and the way to the end page.
class Qel11 : public Form {
    Q_OBJECT
public:
    explicit Qel11(QWidget *parent = nullptr);

    void Form_Load() override;
    void Form_Activate() override;

    void Option1_Click(int Index);
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command10_Click();
    void Command11_Click();
    void Command12_Click();
    void Label20_Click(int Index);
    void mnuSteuer_Click();
    void mnuWo_Click();
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();

    // Form-level variables.
    std::int16_t LastClickScore = 0;
    std::int16_t QuestionTries = 0;
    std::int16_t QuestionHeaderWritten = 0;

    // Controls, named as on the page.
    QLabel *Label1 = nullptr; // "Abschlusstest"
    std::array<QGroupBox *, kTestQuestionCount> Frame1{};
    std::array<CaptionLabel *, kTestQuestionCount> Label2{};
    std::array<QRadioButton *, kTestOptionCount> Option1{};
    std::array<QLabel *, kTestOptionCount> Label16{}; // verdicts
    std::array<QLabel *, kTestOptionCount> Label14{}; // markers
    QLabel *Label5 = nullptr;                         // "Aufgabe"
    QLabel *Label6 = nullptr;                         // question number
    QLabel *Label3 = nullptr;                         // "Punkte:"
    QLabel *Label10 = nullptr;                        // LastClickScore
    QLabel *Label8 = nullptr;                         // "von"
    QLabel *Label12 = nullptr;                        // QuestionTries
    QLabel *Label4 = nullptr;                         // "Gesamtpunkte:"
    QLabel *Label7 = nullptr;                         // TestCorrectCount
    QLabel *Label11_1 = nullptr;                      // "von"
    QLabel *Label9 = nullptr;                         // TestAnsweredCount
    CaptionLabel *Label17 = nullptr;                  // instruction
    QLabel *Label15 = nullptr;                        // grade
    QLabel *Label21 = nullptr;       // where the button explanation is switched on again
    Picture *Image1 = nullptr;       // explanation of the control buttons
    QPushButton *Command1 = nullptr; // to the end page
    QPushButton *Command2 = nullptr; // "<<"
    QPushButton *Command3 = nullptr; // end
    QPushButton *Command4 = nullptr; // restart the test
    QPushButton *Command5 = nullptr; // grading
    QPushButton *Command7 = nullptr; // print and end
    QTimer *Timer1 = nullptr;
    QTimer *Timer2 = nullptr;
    QTimer *Timer3 = nullptr;
    PageFrame::Menus menus;
    PageFrame::ExitFrame exitFrame;
    PageFrame::Overview overview;

private:
    void buildControls();
    QGroupBox *buildQuestion(int k, QWidget *parent);
};

// The instruction of the page, with the runs of blanks that break it into lines.
extern const QString kTestInstruction;

// Makes page 11 and the grade-scale screen known to the screen layer.
void registerFinalTestScreens();
