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
#include <QWindow>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

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
        if (element == CE_PushButton && drawButtonCopy(option, painter, widget))
            return;
        drawControlAnew(element, option, painter, widget);
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
    void drawControlAnew(ControlElement element, const QStyleOption *option, QPainter *painter,
                         const QWidget *widget) const {
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

    // Buttons and fields are drawn once for each look and then copied. Fusion keeps copies of its
    // button faces, but by the identity of the button's palette, and the pages give a button a
    // new palette each time it is switched on or off (its colour tells the pupil which buttons
    // work): Fusion would draw the face anew each time, and a field's rounded frame always, while
    // the pupil waits for the verdict on an answer. These copies go by the colours themselves.
    // Everything a look depends on goes into its key as characters: `look` and the colours of
    // the option's colour group.
    template <std::size_t N>
    static QString lookKey(const std::array<quint32, N> &look, const QStyleOption *option) {
        std::array<quint32, QPalette::NColorRoles> colours{};
        for (int role = 0; role < QPalette::NColorRoles; ++role)
            colours[std::size_t(role)] = option->palette.color(QPalette::ColorRole(role)).rgba();
        QString key(reinterpret_cast<const QChar *>(look.data()),
                    qsizetype(sizeof look / sizeof(QChar)));
        key.append(reinterpret_cast<const QChar *>(colours.data()),
                   qsizetype(sizeof colours / sizeof(QChar)));
        return key;
    }

    // The font's identity, for a key: QFont::key() writes the whole description out, which
    // costs more than the copy saves.
    static QString fontKey(const QFont &font) {
        const std::array<quint32, 5> look = {
            quint32(font.pixelSize()), quint32(std::lround(font.pointSizeF() * 1000)),
            quint32(font.weight()),
            quint32(font.italic()) | quint32(font.underline()) << 1 |
                quint32(font.strikeOut()) << 2,
            quint32(font.stretch())};
        return QString(reinterpret_cast<const QChar *>(look.data()),
                       qsizetype(sizeof look / sizeof(QChar))) +
               font.family() + QChar(0);
    }

    // The colour a control is drawn over: that of the nearest widget behind it that fills its
    // background, where it is one plain colour; invalid otherwise.
    static QColor groundBehind(const QWidget *widget) {
        for (const QWidget *w = widget ? widget->parentWidget() : nullptr; w;
             w = w->parentWidget()) {
            if (w->autoFillBackground() || w->isWindow()) {
                const QBrush &brush = w->palette().brush(w->backgroundRole());
                return brush.style() == Qt::SolidPattern && brush.isOpaque() ? brush.color()
                                                                             : QColor();
            }
        }
        return {};
    }

    // Draws `option->rect` from the copy kept under `key`, drawing it with `draw` first where
    // there is none. A copy is made over the colour behind `widget` where that is a plain one:
    // it is then copied whole rather than blended. Where the screen scales by a fraction a copy
    // would not fall on whole device pixels: there nothing is copied.
    static bool drawCopy(QString key, const QStyleOption *option, QPainter *painter,
                         const QWidget *widget, const std::function<void(QPainter *)> &draw) {
        if (option->rect.isEmpty() || !painter->device())
            return false;
        const qreal ratio = painter->device()->devicePixelRatio();
        if (ratio != std::floor(ratio))
            return false;
        const QColor ground = groundBehind(widget);
        const QRgb groundKey = ground.isValid() ? ground.rgba() : 0;
        key.append(reinterpret_cast<const QChar *>(&groundKey),
                   qsizetype(sizeof groundKey / sizeof(QChar)));
        QPixmap copy;
        if (!QPixmapCache::find(key, &copy)) {
            copy = QPixmap(option->rect.size() * ratio);
            copy.setDevicePixelRatio(ratio);
            copy.fill(ground.isValid() ? ground : QColor(Qt::transparent));
            QPainter copyPainter(&copy);
            copyPainter.setFont(painter->font());
            copyPainter.setPen(painter->pen());
            copyPainter.setLayoutDirection(painter->layoutDirection());
            copyPainter.translate(-option->rect.topLeft());
            draw(&copyPainter);
            copyPainter.end();
            QPixmapCache::insert(key, copy);
        }
        painter->drawPixmap(option->rect.topLeft(), copy);
        return true;
    }

    bool drawCopy(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                  const QWidget *widget) const {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if (element == PE_PanelButtonCommand && !button)
            return false;
        const std::array<quint32, 8> look = {
            quint32(element),
            quint32(option->state),
            button  ? quint32(button->features)
            : frame ? quint32(frame->features)
                    : 0U,
            frame ? quint32(frame->lineWidth) : 0U,
            quint32(option->direction),
            quint32(option->rect.width()),
            quint32(option->rect.height()),
            quint32(
                std::lround(painter->device() ? painter->device()->devicePixelRatio() * 1000 : 0)),
        };
        return drawCopy(lookKey(look, option), option, painter, widget, [&](QPainter *copyPainter) {
            ZoomingStyle::drawPrimitive(element, option, copyPainter, widget);
        });
    }

    // A whole push button, its face, caption or picture and focus frame: after an answer four of
    // them change at once.
    bool drawButtonCopy(const QStyleOption *option, QPainter *painter,
                        const QWidget *widget) const {
        const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
        if (!button || !painter->device())
            return false;
        const auto icon = quint64(button->icon.cacheKey());
        const std::array<quint32, 12> look = {
            quint32(CE_PushButton),
            quint32(option->state),
            quint32(button->features),
            quint32(option->direction),
            quint32(option->rect.width()),
            quint32(option->rect.height()),
            quint32(std::lround(painter->device()->devicePixelRatio() * 1000)),
            quint32(std::lround(Zoom::factorOf(widget) * 1000)),
            quint32(icon),
            quint32(icon >> 32),
            quint32(button->iconSize.width()),
            quint32(button->iconSize.height()),
        };
        const QFont &font = painter->font();
        const QString key = lookKey(look, option) + fontKey(font) + button->text;
        return drawCopy(key, option, painter, widget, [&](QPainter *copyPainter) {
            drawControlAnew(CE_PushButton, option, copyPainter, widget);
        });
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
        // A window put on the screen is drawn as its expose event is handled: the icon follows
        // once that is done. (The screens lie in the window of the pages and are no windows of
        // their own; the window of the pages draws nothing itself.)
        const auto *window = qobject_cast<QWindow *>(watched);
        if (event->type() == QEvent::Expose && window && window->isExposed()) {
            QCoreApplication::instance()->removeEventFilter(this);
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
