// SPDX-License-Identifier: GPL-3.0-or-later
#include "captionlabel.h"

#include <QPainter>
#include <QRegularExpression>

QString captionOnScreen(const QString &caption, const BlankRuns &rule) {
    const QString text = rule.trim ? caption.trimmed() : caption;
    QString shown;
    shown.reserve(text.size());
    for (qsizetype i = 0; i < text.size();) {
        if (text.at(i) != u' ') {
            shown.append(text.at(i++));
            continue;
        }
        qsizetype end = i;
        while (end < text.size() && text.at(end) == u' ')
            ++end;
        const qsizetype run = end - i;
        if (rule.paragraph > 0 && run >= rule.paragraph)
            shown += QStringLiteral("\n\n");
        else if (rule.line > 0 && run >= rule.line)
            shown += QLatin1Char('\n');
        else if (rule.collapse > 0 && run >= rule.collapse)
            shown += QLatin1Char(' ');
        else
            shown += QString(run, QLatin1Char(' '));
        i = end;
    }
    return shown;
}

QString captionSpoken(const QString &caption) {
    // "Bemer-      kungen:": a word broken by hand for the original line width is one word
    // again; "Auswahl-      Antworten:" keeps its hyphen.
    static const QRegularExpression brokenWord(QStringLiteral("-\\s+(?=\\p{Ll})"));
    static const QRegularExpression compound(QStringLiteral("-\\s+(?=\\p{Lu})"));
    QString spoken = caption.simplified();
    spoken.replace(brokenWord, QString());
    spoken.replace(compound, QStringLiteral("-"));
    return spoken;
}

WrappingLabel::WrappingLabel(const QString &text, QWidget *parent)
    : QLabel(text, parent) {}

int WrappingLabel::heightForWidth(int width) const {
    // What else decides the height: the font, the margins and the indent.
    const QMargins margins =
        contentsMargins() + QMargins(margin() + indent(), margin(), margin(), margin());
    if (text() != measuredText_ || font() != measuredFont_ || margins != measuredMargins_) {
        measuredText_ = text();
        measuredFont_ = font();
        measuredMargins_ = margins;
        heights_.clear();
    }
    const auto known = heights_.constFind(width);
    if (known != heights_.constEnd())
        return *known;
    const int height = QLabel::heightForWidth(width);
    // A window dragged through many sizes asks for many widths; only the last ones matter.
    if (heights_.size() >= 64)
        heights_.clear();
    heights_.insert(width, height);
    return height;
}

CaptionLabel::CaptionLabel(const QString &caption, const BlankRuns &rule, QWidget *parent)
    : WrappingLabel({}, parent)
    , rule_(rule) {
    setCaption(caption);
}

void CaptionLabel::setCaption(const QString &caption) {
    caption_ = caption;
    setText(captionOnScreen(caption, rule_));
    setAccessibleName(captionSpoken(caption));
}

CaptionLabel::Look CaptionLabel::look() const {
    return {size(),
            devicePixelRatioF(),
            palette().cacheKey(),
            isEnabled(),
            margin(),
            indent(),
            contentsMargins(),
            int(alignment()),
            frameStyle(),
            lineWidth(),
            font(),
            text()};
}

void CaptionLabel::paintEvent(QPaintEvent *e) {
    if (keeping_ || !autoFillBackground()) {
        WrappingLabel::paintEvent(e);
        return;
    }
    if (!drawing_.isNull() && drawnAs_ == look()) {
        QPainter painter(this);
        painter.drawPixmap(0, 0, drawing_);
        return;
    }
    // Drawn as a label draws itself; the drawing to keep is made once this one is done, as a
    // widget cannot draw itself twice at once.
    WrappingLabel::paintEvent(e);
    if (!keepPending_) {
        keepPending_ = true;
        QMetaObject::invokeMethod(
            this, [this] { keepDrawing(); }, Qt::QueuedConnection);
    }
}

void CaptionLabel::keepDrawing() {
    keepPending_ = false;
    if (size().isEmpty())
        return;
    const double ratio = devicePixelRatioF();
    QPixmap drawing(size() * ratio);
    drawing.setDevicePixelRatio(ratio);
    keeping_ = true;
    render(&drawing, QPoint(), QRegion(), QWidget::DrawWindowBackground);
    keeping_ = false;
    drawing_ = drawing;
    drawnAs_ = look();
}
