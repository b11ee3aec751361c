// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue.h"
#include "pagebase.h"

#include <QList>

#include <array>
#include <cstdint>

class CaptionLabel;
class Course;
struct PageBank;
class Picture;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTimer;

// One lesson page: five questions, one at a time, answered by typing A, B or C. The ten pages
// Qel1..Qel10 are instances of this class, each configured by its entry of the page catalogue.
class LessonPage : public PageBase {
    Q_OBJECT
public:
    LessonPage(int page, Course &course, double zoomFactor);

    // Form_Load: a new page starts with its first question; page 1 also starts the counts anew.
    void onLoad() override;
    // Form_Activate: the page becomes the current page.
    void onActivate() override;
    QList<ScreenId> likelyNext() const override { return {info_.next, info_.previous}; }

    // Command1_Click: the next question, after the last one the next page.
    void nextQuestion();
    // Command2_Click, "<<".
    void previousPage();
    // Command4_Click, ">>".
    void nextPage();
    // Command5_Click: try the question again.
    void retry();
    // Text1_Change: filters the typed letter and evaluates it.
    void onAnswerChanged();
    // Text1_Click: keeps the pupil from typing over a verdict.
    void onAnswerClicked();
    // Timer1_Timer: the pace note goes and the page's buttons come back.
    void endPaceNote();
    // mnuPunkt_Click.
    void togglePoints();

    const PageInfo &info() const { return info_; }

    // The state of the question on view.
    std::int16_t questionIndex = 0;     // position of the current question on the page, 0..4
    std::int16_t answerCorrectFlag = 0; // nonzero when the last evaluation scored
    std::int16_t answerEvaluated = 0;   // 1 from an evaluation until the next question or try
    std::int32_t questionStartTime = 0; // clock seconds, rounded, when the question was shown

    // Controls of the page; the page base holds the menus, the end button, the exit frame, the
    // overview and the button explanation.
    std::array<Picture *, 5> questionPictures{}; // Image1(0..4)
    std::array<Picture *, 5> optionPictures{};   // Image2(0..4)
    QList<Picture *> feedbackPictures;           // Image3, 0 to the page's highest feedback index
    QLineEdit *answerEdit = nullptr;             // Text1
    CaptionLabel *questionHeading = nullptr;     // Label2 "Frage:"
    CaptionLabel *optionsHeading = nullptr;      // Label3 "Auswahl-      Antworten:"
    CaptionLabel *answerHeading = nullptr;       // Label4 "Antwort:"
    CaptionLabel *remarksHeading = nullptr;      // Label5 "Bemer-      kungen:"
    QLabel *pointsHeading = nullptr;             // Label6 "Punkte:"
    QLabel *instructionLabel = nullptr;          // Label7
    CaptionLabel *paceNote = nullptr;            // Label8
    QLabel *pointsLabel = nullptr;               // Label9
    QPushButton *nextQuestionButton = nullptr;   // Command1
    QPushButton *previousPageButton = nullptr;   // Command2 "<<"
    QPushButton *nextPageButton = nullptr;       // Command4 ">>"
    QPushButton *retryButton = nullptr;          // Command5
    QTimer *paceTimer = nullptr;                 // Timer1

protected:
    QList<int> numbersAfterResume() const override;
    void focusAfterExitFrame() override;
    void focusAfterOverview() override;

private:
    void evaluateAnswer();
    void findCurrentQuestion();
    // The points in the points display.
    void showPoints();
    void checkAnswerPace(int minimumSeconds);
    bool anyVisible(const std::vector<int> &pictures) const;
    // What a screen reader says with the answer field: the page, the question and its options.
    QString spokenQuestion() const;
    // What it says with the button that takes the focus after an answer: the verdict with its
    // hint, the points and the pace note.
    void describeVerdict();
    QString spokenVerdict() const;
    // The page's controls, built in the order of its rows.
    void buildControls();
    void setupPageParts();
    void setupQuestions(QGridLayout *grid, const PageBank &bank);
    void setupOptions(QGridLayout *grid, const PageBank &bank);
    void setupAnswer(QGridLayout *grid);
    void setupPaceNote(QGridLayout *grid);
    void setupRemarks(QGridLayout *grid, const PageBank &bank);
    void setupExplanation(QGridLayout *grid);
    void setupButtons(QGridLayout *grid);
    void connectHandlers();

    const PageInfo &info_;
};

// The pace note: one caption in which runs of blanks make the line breaks.
extern const QString kPaceNote;

// Makes the ten lesson pages known to the screen layer.
void registerLessonPages(Course &course);
