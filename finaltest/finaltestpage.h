// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "pagebase.h"
#include "resultlog.h"
#include "testcontent.h"

#include <array>
#include <cstdint>
#include <optional>

class CaptionLabel;
class Course;
class QGridLayout;
class QGroupBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QRadioButton;
class QTimer;
class QVBoxLayout;

// Page 11, the final test: ten questions with four option buttons each, every click judged,
// counted and logged, then grading, printing, restarting and the way to the end page.
class FinalTestPage : public PageBase {
    Q_OBJECT
public:
    FinalTestPage(Course &course, double zoomFactor);

    // Form_Load: the test starts with both counters at 0.
    void onLoad() override;
    // Form_Activate: the file paths are formed and the page becomes the current page.
    void onActivate() override;
    QList<ScreenId> likelyNext() const override { return {ScreenId::EndPage, ScreenId::Page10}; }

    // Option1_Click: judges, counts and logs a click on option `index` (0..39).
    void onOptionClicked(int index);
    // Command1_Click: to the end page.
    void toEndPage();
    // Command2_Click, "<<": back to page 10.
    void previousPage();
    // Command4_Click: the test starts again.
    void restartTest();
    // Command5_Click: asks whether to show the grade scale, else grades at once.
    void askForGrade();
    // Command7_Click: prints the log and ends the programme.
    void printAndEnd();
    // Timer1_Timer: the second five questions replace the first five.
    void showSecondHalf();

    // Form-level variables.
    std::int16_t lastClickScore = 0;        // 1 when the last click hit the right option
    std::int16_t questionTries = 0;         // clicks spent on the current question
    std::int16_t questionHeaderWritten = 0; // 1 once a wrong click has logged the heading

    // Controls of the page; the page base holds the menus, the end button, the exit frame, the
    // overview and the button explanation.
    QLabel *titleLabel = nullptr;                                    // Label1 "Abschlusstest"
    std::array<QGroupBox *, kTestQuestionCount> questionFrames{};    // Frame1(0..9)
    std::array<CaptionLabel *, kTestQuestionCount> questionLabels{}; // Label2(0..9)
    std::array<QRadioButton *, kTestOptionCount> optionButtons{};    // Option1(0..39)
    std::array<QLabel *, kTestOptionCount> verdictLabels{};          // Label16(0..39)
    std::array<QLabel *, kTestOptionCount> markerLabels{};           // Label14(0..39)
    QLabel *questionNumberHeading = nullptr;                         // Label5 "Aufgabe"
    QLabel *questionNumberLabel = nullptr;                           // Label6
    QLabel *scoreHeading = nullptr;                                  // Label3 "Punkte:"
    QLabel *lastScoreLabel = nullptr;                                // Label10, lastClickScore
    QLabel *triesOfLabel = nullptr;                                  // Label8 "von"
    QLabel *triesLabel = nullptr;                                    // Label12, questionTries
    QLabel *totalHeading = nullptr;                                  // Label4 "Gesamtpunkte:"
    QLabel *totalCorrectLabel = nullptr;                             // Label7, testCorrectCount
    QLabel *totalOfLabel = nullptr;                                  // Label11(1) "von"
    QLabel *totalAnsweredLabel = nullptr;                            // Label9, testAnsweredCount
    CaptionLabel *instructionLabel = nullptr;                        // Label17
    QLabel *gradeLabel = nullptr;                                    // Label15
    QPushButton *endPageButton = nullptr;                            // Command1
    QPushButton *previousPageButton = nullptr;                       // Command2 "<<"
    QPushButton *restartTestButton = nullptr;                        // Command4
    QPushButton *gradeButton = nullptr;                              // Command5
    QPushButton *printButton = nullptr;                              // Command7
    QTimer *halfChangeTimer = nullptr;                               // Timer1

protected:
    QList<int> numbersAfterResume() const override;
    QList<int> numbersAfterRestart() const override;
    void focusAfterExitFrame() override;

private:
    // Logs a click on option `index`: the file heading with the first logged click of question
    // 1, the question's heading unless it stands already, then the click line.
    void logClick(int index, std::optional<ResultLog::ResumeNext> &resumeNext);
    // Tells assistive technology that question k is solved: the frame and each option say so,
    // a clicked option with its verdict.
    void describeSolved(int k);
    // Gives the focus to the first option of question k.
    void focusQuestion(int k);
    // The grade given by the course: in Label15, and said with the way to the end page.
    void showGrade(const QString &grade);

    // The page is built part by part: the score panel over the questions, then the footer with
    // the instruction or the result, the hint and the buttons.
    void buildControls();
    QHBoxLayout *buildScorePanel(QWidget *central);
    void buildQuestions(QWidget *central, QVBoxLayout *page);
    QGroupBox *buildQuestion(int k, QWidget *parent);
    QGridLayout *buildFooter(QWidget *central);
    QVBoxLayout *buildResult(QWidget *central);
    QHBoxLayout *buildButtons(QWidget *central);
    void nameControls();
    void connectHandlers();

    QObject *optionKeys_;            // the arrow keys of the options
    bool focusToSecondHalf_ = false; // question 5 was solved from the keyboard
};

// What a screen reader says of a solved question and its options, after their names.
extern const QString kSolvedDescription;

// The instruction of the page, with the runs of blanks that break it into lines.
extern const QString kTestInstruction;

// Makes page 11 and the grade-scale screen known to the screen layer.
void registerFinalTestScreens(Course &course);
