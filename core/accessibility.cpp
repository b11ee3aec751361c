// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility.h"

#include "appearing.h"
#include "form.h"
#include "picture.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QFontMetrics>
#include <QLineEdit>
#include <QRegularExpression>
#include <QWidget>

namespace {

// An announcement: no size, never drawn, never focused; only screen readers notice it appear.
class Announcement : public QWidget {
public:
    explicit Announcement(QWidget *parent)
        : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
        setGeometry(0, 0, 0, 0);
        hide();
    }
};

// Marks a text that is said by itself as it appears.
constexpr char kSaidWhenShown[] = "saidWhenShown";

// A text on the page. One that appears and goes (a verdict, the pace note) is visible to a screen
// reader exactly while the pupil sees it.
class Text : public QAccessibleWidget {
public:
    explicit Text(QWidget *w)
        : QAccessibleWidget(w, QAccessible::StaticText) {}
    QAccessible::State state() const override {
        QAccessible::State s = QAccessibleWidget::state();
        if (!Appearing::isVisible(widget()))
            s.invisible = true;
        return s;
    }
};

// A picture is read as one text: the drawing inside it is described in its name, and the views
// that draw it are no controls of their own.
class WholeText : public Text {
public:
    using Text::Text;
    int childCount() const override { return 0; }
    QAccessibleInterface *child(int) const override { return nullptr; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
};

// A text field, read whole. Qt's own line edit reports the text attributes of every character as
// a run of no characters, and Orca, which reads a field's text run by run, then reads a field
// holding "20" as "2".
class Field : public QAccessibleWidget,
              public QAccessibleTextInterface,
              public QAccessibleEditableTextInterface {
public:
    explicit Field(QLineEdit *edit)
        : QAccessibleWidget(edit, QAccessible::EditableText) {}

    void *interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface *>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }
    QString text(QAccessible::Text t) const override {
        return t == QAccessible::Value ? edit()->text() : QAccessibleWidget::text(t);
    }
    QAccessible::State state() const override {
        QAccessible::State s = QAccessibleWidget::state();
        s.editable = !edit()->isReadOnly();
        s.readOnly = edit()->isReadOnly();
        s.selectableText = true;
        return s;
    }

    // The text, the cursor and the selection.
    QString text(int start, int end) const override {
        return edit()->text().mid(start, end - start);
    }
    int characterCount() const override { return static_cast<int>(edit()->text().size()); }
    int cursorPosition() const override { return edit()->cursorPosition(); }
    void setCursorPosition(int position) override { edit()->setCursorPosition(position); }
    int selectionCount() const override { return edit()->hasSelectedText() ? 1 : 0; }
    void selection(int index, int *start, int *end) const override {
        *start = *end = 0;
        if (index == 0 && edit()->hasSelectedText()) {
            *start = edit()->selectionStart();
            *end = *start + static_cast<int>(edit()->selectedText().size());
        }
    }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int) override { edit()->deselect(); }
    void setSelection(int, int start, int end) override {
        edit()->setSelection(start, end - start);
    }
    // One run of plain text, the whole field.
    QString attributes(int, int *start, int *end) const override {
        *start = 0;
        *end = characterCount();
        return {};
    }
    QRect characterRect(int offset) const override {
        const QLineEdit *e = edit();
        const QString text = e->text();
        const QFontMetrics metrics(e->font());
        const QRect inside = e->contentsRect().marginsRemoved(e->textMargins());
        const int width = metrics.horizontalAdvance(text);
        int x = inside.left();
        if (e->alignment() & Qt::AlignHCenter)
            x += (inside.width() - width) / 2;
        else if (e->alignment() & Qt::AlignRight)
            x = inside.right() - width;
        const int left = x + metrics.horizontalAdvance(text.left(offset));
        const int right = x + metrics.horizontalAdvance(text.left(offset + 1));
        const int top = inside.top() + (inside.height() - metrics.height()) / 2;
        return {e->mapToGlobal(QPoint(left, top)), QSize(right - left, metrics.height())};
    }
    int offsetAtPoint(const QPoint &point) const override {
        for (int i = 0; i < characterCount(); ++i) {
            if (characterRect(i).contains(point))
                return i;
        }
        return -1;
    }
    void scrollToSubstring(int, int) override {}

    // Editing, as typing would.
    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString &text) override { replaceText(offset, offset, text); }
    void replaceText(int start, int end, const QString &text) override {
        QString changed = edit()->text();
        changed.replace(start, end - start, text);
        edit()->setText(changed);
    }

private:
    QLineEdit *edit() const { return static_cast<QLineEdit *>(widget()); }
};

// A control that appears is given a new identity on the accessibility bus, and what is inside it
// with it. AT-SPI clients keep what they have read of a control, its states among them, until the
// control tells them otherwise, and Qt tells them that a control is shown again but not that it is
// visible: a control read while it was hidden (a page prepared unseen, a verdict, a panel) would
// stay invisible to them, and to Orca's flat review, for good. A new identity is read afresh.
void renew(QWidget *root) {
    QAccessibleInterface *old = QAccessible::queryAccessibleInterface(root);
    if (!old)
        return;
    QAccessibleEvent gone(old, QAccessible::ObjectDestroyed);
    QAccessible::updateAccessibility(&gone);
    QList<QWidget *> widgets = root->findChildren<QWidget *>();
    widgets.prepend(root);
    for (QWidget *w : std::as_const(widgets)) {
        if (w != root && w->isWindow())
            continue;
        if (QAccessibleInterface *iface = QAccessible::queryAccessibleInterface(w))
            QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(iface));
    }
    QAccessibleEvent created(root, QAccessible::ObjectCreated);
    QAccessible::updateAccessibility(&created);
    // A control that took the focus before it appeared has it under its new identity.
    QWidget *focus = QApplication::focusWidget();
    if (focus && (focus == root || root->isAncestorOf(focus))) {
        QAccessibleEvent focused(focus, QAccessible::Focus);
        QAccessible::updateAccessibility(&focused);
    }
}

bool isScreen(const QWidget *window) {
    return qobject_cast<const Form *>(window) ||
           window->findChild<Form *>(QString(), Qt::FindDirectChildrenOnly);
}

// Whether a widget's parent has been shown to screen readers.
constexpr char kShown[] = "shownToScreenReaders";

// Renews every control that is shown by itself; children are shown before their parent, so the
// one shown itself renews them with it.
class FreshOnShow : public QObject {
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *object, QEvent *e) override {
        const bool show = e->type() == QEvent::Show;
        if ((!show && e->type() != QEvent::Hide) || !object->isWidgetType())
            return false;
        auto *w = static_cast<QWidget *>(object);
        w->setProperty(kShown, show);
        if (show && QAccessible::isActive() && isScreen(w->window()) &&
            (w->isWindow() || w->parentWidget()->property(kShown).toBool()))
            renew(w);
        return false;
    }
};

// A control that appears or goes is told to screen readers as a widget shown or hidden is.
void appearedOrWent(QWidget *control, bool visible) {
    if (!QAccessible::isActive())
        return;
    if (visible && isScreen(control->window()) &&
        control->parentWidget()->property(kShown).toBool())
        renew(control);
    QAccessibleEvent event(control, visible ? QAccessible::ObjectShow : QAccessible::ObjectHide);
    QAccessible::updateAccessibility(&event);
}

QAccessibleInterface *programmeControls(const QString &, QObject *object) {
    if (!object || !object->isWidgetType())
        return nullptr;
    if (auto *picture = qobject_cast<Picture *>(object))
        return new WholeText(picture);
    if (auto *field = qobject_cast<QLineEdit *>(object))
        return new Field(field);
    if (auto *drawing = qobject_cast<SvgView *>(object))
        return new QAccessibleWidget(drawing, QAccessible::Graphic);
    if (auto *announcement = dynamic_cast<Announcement *>(object))
        return new QAccessibleWidget(announcement, QAccessible::Notification);
    if (object->property(kSaidWhenShown).toBool())
        return new QAccessibleWidget(static_cast<QWidget *>(object), QAccessible::Notification);
    if (Appearing::isAppearing(static_cast<QWidget *>(object)))
        return new Text(static_cast<QWidget *>(object));
    return nullptr;
}

} // namespace

namespace Accessibility {

QString spokenCaption(const QString &caption) {
    static const QRegularExpression run(QStringLiteral(" {2,}"));
    QString text = caption.trimmed();
    const QRegularExpressionMatch m = run.match(text);
    if (!m.hasMatch())
        return text;
    return text.left(m.capturedStart()) + QStringLiteral(" – ") +
           text.mid(m.capturedEnd()).simplified();
}

void install() {
    static const bool installed = [] {
        QAccessible::installFactory(programmeControls);
        qApp->installEventFilter(new FreshOnShow(qApp));
        Appearing::setObserver(appearedOrWent);
        return true;
    }();
    Q_UNUSED(installed)
}

void sayWhenShown(QWidget *text) {
    text->setProperty(kSaidWhenShown, true);
    // Made anew as a notification the next time it is asked for.
    QAccessible::deleteAccessibleInterface(
        QAccessible::uniqueId(QAccessible::queryAccessibleInterface(text)));
}

void announce(QWidget *within, const QString &text) {
    Announcement *announcement = nullptr;
    for (QObject *child : within->children()) {
        if ((announcement = dynamic_cast<Announcement *>(child)))
            break;
    }
    if (!announcement)
        announcement = new Announcement(within);
    announcement->hide();
    announcement->setAccessibleName(text);
    announcement->show();
}

} // namespace Accessibility
