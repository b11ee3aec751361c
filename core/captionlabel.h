// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QLabel>

// In the programme's captions, runs of blanks stand for line breaks: the captions were written
// for a fixed line width and filled up with blanks to the end of each line. On screen a run of
// at least `line` blanks becomes a line break and one of at least `paragraph` an empty line; with
// `collapse` set, a shorter run of at least that many blanks becomes one blank. Shorter runs stay
// as they are. `trim` drops the blanks at both ends first.
struct BlankRuns {
    int line = 0;
    int paragraph = 0;
    int collapse = 0;
    bool trim = true;
};

QString captionOnScreen(const QString &caption, const BlankRuns &rule);
// The caption as a screen reader reads it: every run of blanks one blank, a word broken by hand
// whole again.
QString captionSpoken(const QString &caption);

// A label that remembers the height its text needs at each width. Layouts ask again each time a
// control near it appears or goes, and a word-wrapped label would lay its text out anew each
// time: when a verdict appears, the pupil would wait for that.
class WrappingLabel : public QLabel {
    Q_OBJECT
public:
    explicit WrappingLabel(const QString &text = {}, QWidget *parent = nullptr);
    int heightForWidth(int width) const override;

private:
    mutable QString measuredText_;
    mutable QFont measuredFont_;
    mutable QMargins measuredMargins_;
    mutable QHash<int, int> heights_;
};

// A label that keeps its caption exactly as the programme has it and shows it by its blank-run
// rule. A screen reader reads it as captionSpoken() gives it.
class CaptionLabel : public WrappingLabel {
    Q_OBJECT
public:
    CaptionLabel(const QString &caption, const BlankRuns &rule, QWidget *parent = nullptr);
    void setCaption(const QString &caption);
    const QString &caption() const { return caption_; }

private:
    QString caption_;
    BlankRuns rule_;
};
