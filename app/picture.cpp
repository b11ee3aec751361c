// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture.h"

#include <QLabel>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextDocumentFragment>
#include <QVBoxLayout>

SvgView::SvgView(const QString &resource, QWidget *parent)
    : QWidget(parent)
    , renderer_(new QSvgRenderer(resource, this)) {
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

Picture::Picture(QWidget *parent)
    : QFrame(parent)
    , label_(new QLabel(this)) {
    setFrameShape(QFrame::Panel);
    setFrameShadow(QFrame::Sunken);
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, QColor(255, 255, 240));
    p.setColor(QPalette::WindowText, Qt::black);
    setPalette(p);

    label_->setTextFormat(Qt::RichText);
    label_->setWordWrap(true);
    label_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    label_->setTextInteractionFlags(Qt::NoTextInteraction);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 6, 8, 6);
    layout->addWidget(label_);
}

Picture::Picture(const QString &html, QWidget *parent)
    : Picture(parent) {
    setText(html);
}

void Picture::setText(const QString &html) {
    label_->setText(html);
    label_->setVisible(!html.isEmpty());
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

QString Picture::plainText() const {
    QString text = QTextDocumentFragment::fromHtml(label_->text()).toPlainText();
    text.remove(QChar::ObjectReplacementCharacter);
    return text.simplified();
}

void Picture::updateAccessibleName() {
    QString name = plainText();
    if (!drawingDescription_.isEmpty())
        name = name.isEmpty() ? drawingDescription_ : name + QLatin1Char(' ') + drawingDescription_;
    setAccessibleName(name);
    label_->setAccessibleName(name);
}
