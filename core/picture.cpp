// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture.h"

#include "runcache.h"
#include "theme.h"
#include "zoom.h"

#include <QAbstractTextDocumentLayout>
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

// One renderer per drawing and one document per text and font for the whole run; a view keeps
// what it draws from alive even should the cache be emptied before it goes.
std::shared_ptr<QSvgRenderer> sharedRenderer(const QString &resource) {
    static RunCache<QString, std::shared_ptr<QSvgRenderer>> renderers;
    std::shared_ptr<QSvgRenderer> &renderer = renderers[resource];
    if (!renderer)
        renderer = std::make_shared<QSvgRenderer>(resource);
    return renderer;
}

// An image in a text, drawn afresh from its vectors at every zoom.
struct TextImage {
    QString source;
    QSize size; // in design units
};

} // namespace

// A laid-out text shared by every view that shows it in the same font: its document, and the
// height its layout gave for each width asked for, so that asking again, as layouts do, lays
// nothing out again and leaves the document laid out at the width it is drawn at.
struct SharedText {
    QTextDocument document;
    QList<TextImage> images;
    double imageZoom = 0;          // the images not drawn yet
    QHash<qint64, double> heights; // by width in 1/64 design units
    QSizeF unwrapped{-1, -1};

    void layOutAt(double width) {
        if (document.textWidth() != width)
            document.setTextWidth(width);
    }
    double heightAt(double width) {
        const qint64 key = qRound64(width * 64);
        const auto found = heights.constFind(key);
        if (found != heights.constEnd())
            return *found;
        layOutAt(width);
        const double height = document.size().height();
        // A window dragged to many sizes asks for many widths; only the last ones matter.
        if (heights.size() >= 256)
            heights.clear();
        heights.insert(key, height);
        return height;
    }
    QSizeF unwrappedSize() {
        if (unwrapped.width() < 0) {
            layOutAt(-1);
            unwrapped = document.size();
        }
        return unwrapped;
    }
    // Gives the images the resolution at which they are drawn at this zoom. An image is read
    // once per run; its icon keeps the sizes it has drawn.
    void drawImagesAt(double zoom) {
        if (images.isEmpty() || imageZoom == zoom)
            return;
        imageZoom = zoom;
        static RunCache<QString, QIcon> icons;
        for (const TextImage &image : std::as_const(images)) {
            QIcon &icon = icons[image.source];
            if (icon.isNull())
                icon = QIcon(image.source);
            document.addResource(QTextDocument::ImageResource, QUrl(image.source),
                                 icon.pixmap(image.size * zoom));
        }
    }
};

namespace {

std::shared_ptr<SharedText> sharedText(const QString &html, const QFont &font) {
    static RunCache<QString, std::shared_ptr<SharedText>> texts;
    std::shared_ptr<SharedText> &text = texts[font.key() + QLatin1Char('\n') + html];
    if (!text) {
        text = std::make_shared<SharedText>();
        text->document.setDocumentMargin(0);
        text->document.setDefaultFont(font);
        text->document.setHtml(html);
        // Each image as source, width and height.
        static const QRegularExpression image(QStringLiteral(
            R"(<img\s+src=["']([^"']+)["'][^>]*width=["'](\d+)["'][^>]*height=["'](\d+)["'])"));
        for (auto it = image.globalMatch(html); it.hasNext();) {
            const QRegularExpressionMatch m = it.next();
            text->images.append(
                {m.captured(1), QSize(m.captured(2).toInt(), m.captured(3).toInt())});
        }
    }
    return text;
}

} // namespace

QString plainTextOf(const QString &html) {
    static RunCache<QString, QString> texts;
    if (const QString *known = texts.find(html))
        return *known;
    // An image that stands for a button is read by its name.
    static const QRegularExpression named(
        QStringLiteral(R"(<img\s[^>]*alt=["']([^"']*)["'][^>]*>)"));
    QString source = html;
    source.replace(named, QStringLiteral(" \\1 "));
    QString text = QTextDocumentFragment::fromHtml(source).toPlainText();
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
    text_.reset();
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

SharedText *RichTextView::text() const {
    if (!text_)
        text_ = sharedText(html_, Zoom::designFont(this));
    return text_.get();
}

int RichTextView::heightForWidth(int width) const {
    if (html_.isEmpty())
        return 0;
    const double zoom = Zoom::factorOf(this);
    return qCeil(text()->heightAt(width / zoom) * zoom);
}

QSize RichTextView::sizeHint() const {
    if (html_.isEmpty())
        return {0, 0};
    const double zoom = Zoom::factorOf(this);
    const QSizeF unwrapped = text()->unwrappedSize();
    if (!wrap_)
        return {qCeil(unwrapped.width() * zoom), qCeil(unwrapped.height() * zoom)};
    const int width = qCeil(qBound(kMinimumTextWidth, qCeil(unwrapped.width()), 640) * zoom);
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
    SharedText *shared = text();
    shared->layOutAt(wrap_ ? width() / zoom : -1);
    shared->drawImagesAt(zoom);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.scale(zoom, zoom);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    context.palette.setColor(QPalette::Text, palette().color(QPalette::WindowText));
    context.clip = QRectF(0, 0, width() / zoom, height() / zoom);
    shared->document.documentLayout()->draw(&painter, context);
}

void RichTextView::changeEvent(QEvent *e) {
    if (e->type() == QEvent::FontChange) {
        text_.reset();
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

void Picture::paintEvent(QPaintEvent *e) {
    // The sunken frame, each of its lines filled in one go: as the style draws it, pixel for
    // pixel, at a fraction of the cost, so that a verdict appears at once. Where the screen scales
    // its pixels the style draws it.
    if (frameShape() != QFrame::Panel || devicePixelRatioF() != 1.0) {
        QFrame::paintEvent(e);
        return;
    }
    const QRect r = frameRect();
    const bool sunken = frameShadow() == QFrame::Sunken;
    const QColor &topLeft = (sunken ? palette().dark() : palette().light()).color();
    const QColor &bottomRight = (sunken ? palette().light() : palette().dark()).color();
    QPainter painter(this);
    for (int i = 0; i < lineWidth(); ++i) {
        painter.fillRect(r.x() + i, r.y() + i, r.width() - 1 - 2 * i, 1, topLeft);
        painter.fillRect(r.x() + i, r.y() + i, 1, r.height() - 1 - 2 * i, topLeft);
    }
    for (int i = 0; i < lineWidth(); ++i) {
        painter.fillRect(r.x() + i, r.bottom() - i, r.width() - i, 1, bottomRight);
        painter.fillRect(r.right() - i, r.y() + i, 1, r.height() - i, bottomRight);
    }
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
