// The texts of the platform's own boxes, which Qt has in few languages.
#pragma once

#include <QColorDialog>
#include <QFileDialog>
#include <QString>

#include "support/forms/window_port.h"

namespace vmgv {

// As the language of the process says; where none was chosen yet, the library begins in Greek.
bool speaksGreek();

QString buttonText(MessageResult result);
QString missingHelpText(const QString& page, const QString& folder);
QString noBrowserText(const QString& page);

// Captions that a script or user reads on Qt's own pickers.
void nameParts(QFileDialog& picker);
void nameParts(QColorDialog& picker);

}  // namespace vmgv
