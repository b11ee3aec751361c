// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QLabel>
#include <QPixmap>

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
//
// A caption that fills its own background (the pace note) keeps what it has drawn, and until its
// size, text, font or colours change it is drawn by copying that: its text is laid out once, not
// each time it appears while the pupil waits for the verdict.
class CaptionLabel : public WrappingLabel {
    Q_OBJECT
public:
    CaptionLabel(const QString &caption, const BlankRuns &rule, QWidget *parent = nullptr);
    void setCaption(const QString &caption);
    const QString &caption() const { return caption_; }

protected:
    void paintEvent(QPaintEvent *e) override;

private:
    // Everything the drawing depends on.
    struct Look {
        QSize size;
        double pixelRatio = 0;
        qint64 colours = 0;
        bool enabled = false;
        int margin = 0;
        int indent = 0;
        QMargins contents;
        int alignment = 0;
        int frameStyle = 0;
        int lineWidth = 0;
        QFont font;
        QString text;
        bool operator==(const Look &) const = default;
    };
    Look look() const;
    void keepDrawing();

    QString caption_;
    BlankRuns rule_;
    QPixmap drawing_;
    Look drawnAs_;
    bool keeping_ = false;     // drawing into drawing_
    bool keepPending_ = false; // a drawing to keep is on its way
};
