// SPDX-License-Identifier: GPL-3.0-or-later
#include "application.h"

#include "runcache.h"
#include "theme.h"
#include "zoom.h"

#include <QApplication>
#include <QEvent>
#include <QIcon>
#include <QLibraryInfo>
#include <QPainter>
#include <QPixmap>
#include <QPixmapCache>
#include <QPointer>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTimer>
#include <QTranslator>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

// Fusion, with a focus frame that every focused control shows, whether the focus came by key,
// by mouse or from the programme: a pupil who works with the keyboard always sees where Enter and
// Space go. Fusion itself marks the focus only after Tab was pressed, and not at all on flat
// buttons such as the lines of the page overview.
// Its own sizes follow each window's zoom.
class ProgrammeStyle : public ZoomingStyle {
public:
    ProgrammeStyle()
        : ZoomingStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

    // The message boxes' icons, drawn at the size of the box's page: Fusion has them at 32 pixels
    // at most.
    QIcon standardIcon(StandardPixmap which, const QStyleOption *option,
                       const QWidget *widget) const override {
        static RunCache<int, QIcon> icons;
        const char *file = which == SP_MessageBoxQuestion   ? ":/message-question.svg"
                           : which == SP_MessageBoxCritical ? ":/message-critical.svg"
                                                            : nullptr;
        if (!file)
            return ZoomingStyle::standardIcon(which, option, widget);
        QIcon &icon = icons[int(which)];
        if (icon.isNull())
            icon = QIcon(QString::fromLatin1(file));
        return icon;
    }

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *returned) const override {
        // The buttons of a message box carry their words only, as on Windows, whatever the
        // desktop would add.
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
            return 0;
        return ZoomingStyle::styleHint(hint, option, widget, returned);
    }

    QPalette standardPalette() const override {
        // Switched-off controls keep text a pupil can read.
        QPalette palette = ZoomingStyle::standardPalette();
        for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                                         QPalette::PlaceholderText})
            palette.setColor(QPalette::Disabled, role, Theme::kDisabledText);
        return palette;
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override {
        if (element == CE_ShapedFrame && painter->device()) {
            // At a fractional scale of the screen (QT_SCALE_FACTOR=1.25, say) a frame's line on
            // the widget's edge may fall on a device pixel outside the widget and be lost: there
            // the frame is drawn one pixel further in.
            const qreal ratio = painter->device()->devicePixelRatioF();
            if (const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
                frame && ratio != std::floor(ratio)) {
                QStyleOptionFrame inside(*frame);
                inside.rect.adjust(1, 1, -1, -1);
                ZoomingStyle::drawControl(element, &inside, painter, widget);
                return;
            }
        }
        ZoomingStyle::drawControl(element, option, painter, widget);
        // Fusion's push buttons draw no focus rectangle of their own. A flat button (a line of
        // the overview) has no bevel to keep the frame off: it is framed whole, around its text.
        if (element == CE_PushButton && (option->state & State_HasFocus)) {
            const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
            const bool flat = button && (button->features & QStyleOptionButton::Flat);
            drawFocusFrame(flat ? option->rect
                                : subElementRect(SE_PushButtonFocusRect, option, widget),
                           painter, widget);
        }
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override {
        if (element == PE_FrameFocusRect) {
            // A flat button (a line of the overview) is framed whole; elsewhere the frame keeps a
            // little room around the text it marks.
            QRect around = option->rect.adjusted(-2, -1, 2, 1);
            if (widget && qobject_cast<const QPushButton *>(widget))
                around = widget->rect();
            drawFocusFrame(widget ? around & widget->rect() : option->rect, painter, widget);
            return;
        }
        const bool copied = element == PE_PanelButtonCommand || element == PE_PanelLineEdit ||
                            element == PE_FrameLineEdit;
        if (!copied || !drawCopy(element, option, painter, widget))
            ZoomingStyle::drawPrimitive(element, option, painter, widget);
        if (element == PE_FrameLineEdit && (option->state & State_HasFocus))
            drawFocusFrame(option->rect, painter, widget);
    }

private:
    // A button's face and a field with its frame, drawn once for each look and then copied.
    // Fusion keeps copies of its button faces, but by the identity of the button's palette, and
    // the pages give a button a new palette each time it is switched on or off (its colour tells
    // the pupil which buttons work): Fusion would draw the face anew each time, and a field's
    // rounded frame always, while the pupil waits for the verdict on an answer. These copies go by
    // the colours themselves.
    bool drawCopy(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                  const QWidget *widget) const {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if ((element == PE_PanelButtonCommand && !button) || option->rect.isEmpty() ||
            !painter->device())
            return false;
        const qreal ratio = painter->device()->devicePixelRatio();
        const QPalette &colours = option->palette;
        // Everything the look depends on, as the key's characters.
        const std::array<quint32, 12> look = {
            quint32(element),
            quint32(option->state),
            button  ? quint32(button->features)
            : frame ? quint32(frame->features)
                    : 0U,
            frame ? quint32(frame->lineWidth) : 0U,
            quint32(option->direction),
            quint32(option->rect.width()),
            quint32(option->rect.height()),
            quint32(std::lround(ratio * 1000)),
            colours.button().color().rgba(),
            colours.window().color().rgba(),
            colours.highlight().color().rgba(),
            colours.base().color().rgba(),
        };
        const QString key(reinterpret_cast<const QChar *>(look.data()),
                          qsizetype(sizeof look / sizeof(QChar)));
        QPixmap face;
        if (!QPixmapCache::find(key, &face)) {
            face = QPixmap(option->rect.size() * ratio);
            face.setDevicePixelRatio(ratio);
            face.fill(Qt::transparent);
            QPainter facePainter(&face);
            facePainter.translate(-option->rect.topLeft());
            ZoomingStyle::drawPrimitive(element, option, &facePainter, widget);
            facePainter.end();
            QPixmapCache::insert(key, face);
        }
        painter->drawPixmap(option->rect.topLeft(), face);
        return true;
    }

    static void drawFocusFrame(const QRect &rect, QPainter *painter, const QWidget *widget) {
        // Two pixels wide at the design size, wider with the page.
        const int width = std::max(2, static_cast<int>(std::lround(2 * Zoom::factorOf(widget))));
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(QPen(Theme::kFocusFrame, width));
        painter->drawRect(
            QRectF(rect).adjusted(width / 2.0, width / 2.0, -width / 2.0, -width / 2.0));
        painter->restore();
    }
};

// The window icon is drawn from its SVG at several sizes for the window system when it is set.
// It is given once the first window has been drawn: the pupil sees the start screen that much
// sooner, and its icon a moment later.
class IconAfterFirstFrame : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            static_cast<QWidget *>(watched)->isWindow()) {
            QCoreApplication::instance()->removeEventFilter(this);
            // After the drawing has reached the screen.
            QTimer::singleShot(0, this, [this] {
                QApplication::setWindowIcon(QIcon(QStringLiteral(":/org.kelvora.Kelvora.svg")));
                deleteLater();
            });
        }
        return false;
    }
};

} // namespace

void setUpApplication(QApplication &app) {
    app.setApplicationName(QStringLiteral("Kelvora"));
    app.setApplicationVersion(QStringLiteral(KELVORA_VERSION));
    // The window icon (given after the first frame, above) is the menu entry's icon, and desktops
    // find the entry by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.kelvora.Kelvora"));
    app.installEventFilter(new IconAfterFirstFrame(&app));
    // Fusion draws the light grey of the active buttons on every platform. Its palette is set
    // explicitly: a desktop's own colours (a dark theme, say) would otherwise take its place, and
    // the programme's colours are chosen for their contrast against Fusion's.
    auto *style = new ProgrammeStyle;
    QApplication::setStyle(style);
    QApplication::setPalette(style->standardPalette());

    // The programme speaks German whatever the system's language: Qt's own buttons too ("&Ja",
    // "&Nein"). Without the translation files the buttons stay English and nothing else changes.
    // Qt's own folder first, then the "translations" folder that windeployqt puts beside the
    // programme.
    // One translator per application object: it goes with the application.
    static QPointer<QTranslator> qtTexts;
    if (!qtTexts) {
        qtTexts = new QTranslator(&app);
        const QStringList folders = {QLibraryInfo::path(QLibraryInfo::TranslationsPath),
                                     QCoreApplication::applicationDirPath() +
                                         QStringLiteral("/translations")};
        for (const QString &folder : folders) {
            if (qtTexts->load(QStringLiteral("qtbase_de"), folder)) {
                QCoreApplication::installTranslator(qtTexts);
                break;
            }
        }
    }
}
