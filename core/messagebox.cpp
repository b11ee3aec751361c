// SPDX-License-Identifier: GPL-3.0-or-later
#include "messagebox.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace Seams {

namespace {

std::function<QWidget *()> boxParent;
std::function<bool(const QString &, const QString &)> yesNoOverride;

// Qt's message box keeps its text within 500 pixels and itself within 1000: at a large zoom a
// short question would break into many lines and the buttons be squeezed.
class ZoomedMessageBox : public QMessageBox {
public:
    using QMessageBox::QMessageBox;

protected:
    bool event(QEvent *e) override {
        const bool done = QMessageBox::event(e);
        if (e->type() == QEvent::LayoutRequest)
            keepRoom();
        return done;
    }
    void showEvent(QShowEvent *e) override {
        QMessageBox::showEvent(e);
        keepRoom();
        centre();
    }

private:
    // Widens the box where its controls need more room than Qt gave them, and where its text
    // was broken into lines although the screen has room for it on one.
    void keepRoom() {
        int need = layout()->totalMinimumSize().width();
        const auto labels = findChildren<QLabel *>();
        const auto shown = std::find_if(labels.begin(), labels.end(),
                                        [this](const QLabel *l) { return l->text() == text(); });
        if (shown != labels.end() && (*shown)->wordWrap() && screen()) {
            const QLabel *label = *shown;
            const int oneLine = width() - label->contentsRect().width() +
                                label->fontMetrics().size(Qt::TextShowMnemonic, text()).width() + 1;
            need =
                std::max(need, std::min(oneLine, screen()->availableGeometry().width() * 9 / 10));
        }
        if (need <= width())
            return;
        setFixedSize(
            need,
            std::max(layout()->totalMinimumSize().height(),
                     layout()->hasHeightForWidth() ? layout()->totalHeightForWidth(need) : 0));
        centre();
    }

    // Centred over the screen that asks, on the screen. Its window's frame stands for the box's,
    // which the window system draws only once the box is there.
    void centre() {
        const QWidget *over = parentWidget() ? parentWidget()->window() : nullptr;
        if (!over || !screen())
            return;
        const QRect inside = over->geometry();
        const QRect outside = over->frameGeometry();
        QRect frame = geometry().marginsAdded(
            {inside.left() - outside.left(), inside.top() - outside.top(),
             outside.right() - inside.right(), outside.bottom() - inside.bottom()});
        frame.moveCenter(outside.center());
        const QRect area = screen()->availableGeometry();
        frame.moveLeft(std::clamp(frame.left(), area.left(),
                                  std::max(area.left(), area.right() - frame.width() + 1)));
        frame.moveTop(std::clamp(frame.top(), area.top(),
                                 std::max(area.top(), area.bottom() - frame.height() + 1)));
        move(frame.topLeft());
    }
};

} // namespace

void setBoxParent(std::function<QWidget *()> parent) {
    boxParent = std::move(parent);
}

std::unique_ptr<QMessageBox> messageBox(QMessageBox::Icon icon, const QString &title,
                                        const QString &text, QMessageBox::StandardButtons buttons) {
    // Centred over the screen, and drawn at its zoom: the style sizes the icon by the screen the
    // box belongs to.
    auto box = std::make_unique<ZoomedMessageBox>(icon, title, text, buttons,
                                                  boxParent ? boxParent() : nullptr);
    if (box->parentWidget())
        box->setFont(box->parentWidget()->font());
    return box;
}

bool askYesNoWithMessageBox(const QString &text, const QString &title) {
    const auto box =
        messageBox(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No);
    box->setDefaultButton(QMessageBox::No);
    box->setEscapeButton(QMessageBox::No);
    return box->exec() == QMessageBox::Yes;
}

bool askYesNo(const QString &text, const QString &title) {
    return yesNoOverride ? yesNoOverride(text, title) : askYesNoWithMessageBox(text, title);
}

void setYesNo(std::function<bool(const QString &, const QString &)> ask) {
    yesNoOverride = std::move(ask);
}

void showFailureBox(const QString &systemErrorText) {
    messageBox(QMessageBox::Critical, QStringLiteral("Kelvora"), systemErrorText, QMessageBox::Ok)
        ->exec();
}

} // namespace Seams
