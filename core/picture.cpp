// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture.h"

#include "runcache.h"
#include "theme.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

namespace {

constexpr int kMinimumTextWidth = 120;

// One renderer per drawing and one document per text and font for the whole run; a view keeps
// what it draws from alive even should the cache be emptied before it goes.
std::shared_ptr<QSvgRenderer> sharedRenderer(const QString &resource) {
    static RunCache<QString, std::shared_ptr<QSvgRenderer>> renderers;
    std::shared_ptr<QSvgRenderer> &renderer = renderers[resource];
    if (!renderer)
        renderer = std::make_shared<QSvgRenderer>(resource);
    return renderer;
}

std::shared_ptr<QTextDocument> sharedDocument(const QString &html, const QFont &font) {
    static RunCache<QString, std::shared_ptr<QTextDocument>> documents;
    std::shared_ptr<QTextDocument> &document = documents[font.key() + QLatin1Char('\n') + html];
    if (!document) {
        document = std::make_shared<QTextDocument>();
        document->setDocumentMargin(0);
        document->setDefaultFont(font);
        document->setHtml(html);
    }
    return document;
}

} // namespace

QString plainTextOf(const QString &html) {
    static RunCache<QString, QString> texts;
    if (const QString *known = texts.find(html))
        return *known;
    QString text = QTextDocumentFragment::fromHtml(html).toPlainText();
    text.remove(QChar::ObjectReplacementCharacter);
    text = text.simplified();
    texts[html] = text;
    return text;
}

SvgView::SvgView(const QString &resource, QWidget *parent)
    : QWidget(parent)
    , renderer_(sharedRenderer(resource)) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize SvgView::sizeHint() const {
    return renderer_->defaultSize();
}

int SvgView::heightForWidth(int width) const {
    const QSize size = renderer_->defaultSize();
    if (size.isEmpty())
        return 0;
    return width * size.height() / size.width();
}

void SvgView::paintEvent(QPaintEvent *) {
    QSizeF size = renderer_->defaultSize();
    size.scale(QSizeF(this->size()), Qt::KeepAspectRatio);
    const QRectF target(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2),
                        size);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer_->render(&painter, target);
}

RichTextView::RichTextView(QWidget *parent)
    : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

void RichTextView::setHtml(const QString &html) {
    html_ = html;
    document_.reset();
    updateGeometry();
    update();
}

void RichTextView::setWordWrap(bool wrap) {
    wrap_ = wrap;
    QSizePolicy policy = sizePolicy();
    policy.setHeightForWidth(wrap);
    setSizePolicy(policy);
    updateGeometry();
}

QTextDocument *RichTextView::document() const {
    if (!document_)
        document_ = sharedDocument(html_, font());
    return document_.get();
}

int RichTextView::heightForWidth(int width) const {
    if (html_.isEmpty())
        return 0;
    QTextDocument *doc = document();
    doc->setTextWidth(width);
    return qCeil(doc->size().height());
}

QSize RichTextView::sizeHint() const {
    if (html_.isEmpty())
        return {0, 0};
    QTextDocument *doc = document();
    if (!wrap_) {
        doc->setTextWidth(-1);
        return doc->size().toSize();
    }
    const int width = qBound(kMinimumTextWidth, qCeil(doc->idealWidth()), 640);
    return {width, heightForWidth(width)};
}

QSize RichTextView::minimumSizeHint() const {
    if (!wrap_)
        return sizeHint();
    return {kMinimumTextWidth, 0};
}

void RichTextView::paintEvent(QPaintEvent *) {
    if (html_.isEmpty())
        return;
    QTextDocument *doc = document();
    doc->setTextWidth(wrap_ ? width() : -1);
    QPainter painter(this);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    context.palette.setColor(QPalette::Text, palette().color(QPalette::WindowText));
    context.clip = rect();
    doc->documentLayout()->draw(&painter, context);
}

void RichTextView::changeEvent(QEvent *e) {
    if (e->type() == QEvent::FontChange) {
        document_.reset();
        updateGeometry();
    }
    QWidget::changeEvent(e);
}

Picture::Picture(QWidget *parent)
    : QFrame(parent)
    , text_(new RichTextView(this)) {
    setFrameShape(QFrame::Panel);
    setFrameShadow(QFrame::Sunken);
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, Theme::kPicture);
    p.setColor(QPalette::WindowText, Theme::kPictureText);
    setPalette(p);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->addWidget(text_);
}

Picture::Picture(const QString &html, QWidget *parent)
    : Picture(parent) {
    setText(html);
}

void Picture::setText(const QString &html) {
    text_->setHtml(html);
    text_->setVisible(!html.isEmpty());
    updateAccessibleName();
}

void Picture::setDrawing(const QString &resource, const QString &description) {
    if (!drawing_) {
        drawing_ = new SvgView(resource, this);
        layout()->addWidget(drawing_);
    }
    drawingDescription_ = description;
    updateAccessibleName();
}

void Picture::setWordWrap(bool wrap) {
    text_->setWordWrap(wrap);
}

const QString &Picture::html() const {
    return text_->html();
}

QString Picture::plainText() const {
    return plainTextOf(text_->html());
}

void Picture::updateAccessibleName() {
    QString name = plainText();
    if (!drawingDescription_.isEmpty())
        name = name.isEmpty() ? drawingDescription_ : name + QLatin1Char(' ') + drawingDescription_;
    setAccessibleName(name);
}
