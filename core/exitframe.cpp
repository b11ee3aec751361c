// SPDX-License-Identifier: GPL-3.0-or-later
#include "exitframe.h"

#include "theme.h"
#include "zoom.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

ExitFrame::ExitFrame(QWidget *page)
    : PagePanel(QStringLiteral("Wie möchtest du beenden?"), "Frame10", page) {
    heading = new QLabel(QStringLiteral("Ich möchte beim nächsten Programmstart ..."), this);
    heading->setObjectName(QStringLiteral("Label10"));
    resumeButton = addButton(QStringLiteral("... hier weiterarbeiten"), "Command11");
    restartButton = addButton(QStringLiteral("... von vorn beginnen"), "Command10");
    stayButton = addButton(QStringLiteral("Ich möchte nicht beenden"), "Command12");
    // A listener hears the two choices as the sentences they finish.
    for (QPushButton *choice : {resumeButton, restartButton}) {
        choice->setAccessibleName(heading->text().chopped(3).trimmed() +
                                  choice->text().mid(QStringLiteral("...").size()));
    }
    Zoom &z = Zoom::on(page);
    auto *layout = new QVBoxLayout(this);
    z.setMargins(layout, 18);
    z.setSpacing(layout, 8);
    layout->addWidget(heading);
    layout->addWidget(resumeButton);
    layout->addWidget(restartButton);
    z.addSpacing(layout, 14);
    layout->addWidget(stayButton);
    placeOver(page, this, [this](const QRect &area, QSize) { return centredOver(area, 340); });
    cover =
        addBackdrop(Theme::kExitCover, "Picture10", [](const QRect &area, QSize) { return area; });

    // The harmless choice has the focus: a stray Enter or Space keeps the programme running.
    setHarmlessControl(stayButton);
    hide();
}
