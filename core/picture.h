// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QString>

#include <memory>

class QSvgRenderer;
struct SharedText;

// An SVG drawing scaled to the space it is given, keeping its proportions, drawn afresh from its
// vectors at every size. Drawings are parsed once per programme run and shared by every screen
// that shows them.
class SvgView : public QWidget {
    Q_OBJECT
public:
    explicit SvgView(const QString &resource, QWidget *parent = nullptr);
    // The drawing's own size, in design units.
    QSize designSize() const;
    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *e) override;

private:
    std::shared_ptr<QSvgRenderer> renderer_;
};

// Rich text drawn from a laid-out document. The document is laid out at the design size, in the
// widget's design font, and drawn enlarged by the window's zoom, so that it keeps its lines at
// every zoom; its images are drawn afresh at the zoomed size. Documents are kept per text and
// font for the whole run, so a page that is opened again, or at another zoom, does not parse and
// lay out its texts again.
class RichTextView : public QWidget {
    Q_OBJECT
public:
    explicit RichTextView(QWidget *parent = nullptr);
    void setHtml(const QString &html);
    const QString &html() const { return html_; }
    void setWordWrap(bool wrap);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return wrap_; }
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *e) override;
    void changeEvent(QEvent *e) override;

private:
    SharedText *text() const;

    QString html_;
    bool wrap_ = true;
    mutable std::shared_ptr<SharedText> text_;
};

// A framed picture of the pages: rich text, with a drawing where the picture has one. Its text is
// also its accessible name, so a screen reader reads what the pupil sees. Its margins follow the
// window's zoom.
class Picture : public QFrame {
    Q_OBJECT
public:
    explicit Picture(QWidget *parent = nullptr);
    Picture(const QString &html, QWidget *parent = nullptr);

    void setText(const QString &html);
    void setDrawing(const QString &resource, const QString &description);
    void setWordWrap(bool wrap);
    const QString &html() const;
    QString plainText() const;

protected:
    void changeEvent(QEvent *e) override;
    void paintEvent(QPaintEvent *e) override;

private:
    void updateAccessibleName();
    void updateMargins();

    RichTextView *text_;
    SvgView *drawing_ = nullptr;
    QString drawingDescription_;
};

// The plain text of a piece of rich text, as a screen reader should read it.
QString plainTextOf(const QString &html);
