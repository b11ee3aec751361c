// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture.h"

#include "theme.h"
#include "zoom.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QEvent>
#include <QHash>
#include <QIcon>
#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

namespace {

constexpr int kMinimumTextWidth = 120;

QSvgRenderer *sharedRenderer(const QString &resource) {
    static QHash<QString, QSvgRenderer *> renderers;
    QSvgRenderer *&renderer = renderers[resource];
    if (!renderer)
        renderer = new QSvgRenderer(resource, QCoreApplication::instance());
    return renderer;
}

// The images of a document's text, and the zoom they were last drawn for.
struct TextImage {
    QString source;
    QSize size; // in design units
};
struct DocumentImages {
    QList<TextImage> images;
    double zoom = 0; // not drawn yet
};

QHash<const QTextDocument *, DocumentImages> &documentImages() {
    static QHash<const QTextDocument *, DocumentImages> images;
    return images;
}

std::shared_ptr<QTextDocument> sharedDocument(const QString &html, const QFont &font) {
    static QHash<QString, std::shared_ptr<QTextDocument>> documents;
    std::shared_ptr<QTextDocument> &document = documents[font.key() + QLatin1Char('\n') + html];
    if (!document) {
        document = std::make_shared<QTextDocument>();
        document->setDocumentMargin(0);
        document->setDefaultFont(font);
        document->setHtml(html);
        // Each image as source, width and height, to be drawn afresh from its vectors.
        static const QRegularExpression image(QStringLiteral(
            R"(<img\s+src=["']([^"']+)["'][^>]*width=["'](\d+)["'][^>]*height=["'](\d+)["'])"));
        DocumentImages images;
        for (auto it = image.globalMatch(html); it.hasNext();) {
            const QRegularExpressionMatch m = it.next();
            images.images.append(
                {m.captured(1), QSize(m.captured(2).toInt(), m.captured(3).toInt())});
        }
        if (!images.images.isEmpty())
            documentImages().insert(document.get(), images);
    }
    return document;
}

// Gives the document's images the resolution at which they are drawn at this zoom.
void drawImagesAt(QTextDocument *document, double zoom) {
    const auto found = documentImages().find(document);
    if (found == documentImages().end() || found->zoom == zoom)
        return;
    found->zoom = zoom;
    for (const TextImage &image : std::as_const(found->images)) {
        document->addResource(QTextDocument::ImageResource, QUrl(image.source),
                              QIcon(image.source).pixmap(image.size * zoom));
    }
}

} // namespace

QString plainTextOf(const QString &html) {
    static QHash<QString, QString> texts;
    auto it = texts.constFind(html);
    if (it != texts.constEnd())
        return *it;
    QString text = QTextDocumentFragment::fromHtml(html).toPlainText();
    text.remove(QChar::ObjectReplacementCharacter);
    text = text.simplified();
    texts.insert(html, text);
    return text;
}

SvgView::SvgView(const QString &resource, QWidget *parent)
    : QWidget(parent)
    , renderer_(sharedRenderer(resource)) {
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QSize SvgView::designSize() const {
    return renderer_->defaultSize();
}

QSize SvgView::sizeHint() const {
    return Zoom::on(this).size(renderer_->defaultSize());
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
        document_ = sharedDocument(html_, Zoom::designFont(this));
    return document_.get();
}

int RichTextView::heightForWidth(int width) const {
    if (html_.isEmpty())
        return 0;
    const double zoom = Zoom::factorOf(this);
    QTextDocument *doc = document();
    doc->setTextWidth(width / zoom);
    return qCeil(doc->size().height() * zoom);
}

QSize RichTextView::sizeHint() const {
    if (html_.isEmpty())
        return {0, 0};
    const double zoom = Zoom::factorOf(this);
    QTextDocument *doc = document();
    if (!wrap_) {
        doc->setTextWidth(-1);
        return {qCeil(doc->size().width() * zoom), qCeil(doc->size().height() * zoom)};
    }
    const int width = qCeil(qBound(kMinimumTextWidth, qCeil(doc->idealWidth()), 640) * zoom);
    return {width, heightForWidth(width)};
}

QSize RichTextView::minimumSizeHint() const {
    if (!wrap_)
        return sizeHint();
    return {qCeil(kMinimumTextWidth * Zoom::factorOf(this)), 0};
}

void RichTextView::paintEvent(QPaintEvent *) {
    if (html_.isEmpty())
        return;
    const double zoom = Zoom::factorOf(this);
    QTextDocument *doc = document();
    doc->setTextWidth(wrap_ ? width() / zoom : -1);
    drawImagesAt(doc, zoom);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(zoom, zoom);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    context.palette.setColor(QPalette::Text, palette().color(QPalette::WindowText));
    context.clip = QRectF(0, 0, width() / zoom, height() / zoom);
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
    layout->addWidget(text_);
    updateMargins();
}

void Picture::changeEvent(QEvent *e) {
    // Every change of the zoom changes the font.
    if (e->type() == QEvent::FontChange)
        updateMargins();
    QFrame::changeEvent(e);
}

void Picture::updateMargins() {
    const Zoom &zoom = Zoom::on(this);
    layout()->setContentsMargins(zoom.px(8), zoom.px(6), zoom.px(8), zoom.px(6));
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
