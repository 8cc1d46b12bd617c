#include "frontends/qt/box_texts.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <utility>

#include "support/strings/string_service.h"

namespace vmgv {
namespace {

QString inLanguage(const char* english, const char* greek) {
  return QString::fromUtf8(speaksGreek() ? greek : english);
}

constexpr std::pair<const char*, const char*> kColourPicker[] = {
    {"&Basic colors", "&Βασικά χρώματα"},
    {"&Custom colors", "&Δικά μου χρώματα"},
    {"&Pick Screen Color", "Χρώμα από την &οθόνη"},
    {"&Add to Custom Colors", "&Προσθήκη στα δικά μου"},
    {"Hu&e:", "Από&χρωση:"},
    {"&Sat:", "Κορεσ&μός:"},
    {"&Val:", "&Ένταση:"},
    {"&Red:", "&Κόκκινο:"},
    {"&Green:", "Π&ράσινο:"},
    {"Bl&ue:", "Μπ&λε:"},
};

void translate(const auto& parts) {
  for (auto* part : parts) {
    for (const auto& [english, greek] : kColourPicker) {
      if (part->text() == QLatin1String(english)) part->setText(QString::fromUtf8(greek));
    }
  }
}

}  // namespace

bool speaksGreek() {
  const LanguageId language = processStringService().Language();
  return language == kGreek || language == kNoLanguage;
}

QString buttonText(MessageResult result) {
  switch (result) {
    case MessageResult::Ok: return QStringLiteral("OK");
    case MessageResult::Cancel: return inLanguage("Cancel", "Άκυρο");
    case MessageResult::Yes: return inLanguage("Yes", "Ναι");
    case MessageResult::No: return inLanguage("No", "Όχι");
  }
  return {};
}

QString missingHelpText(const QString& page, const QString& folder) {
  return inLanguage("The help page %1 is not in the folder %2.",
                    "Η σελίδα βοήθειας %1 δεν υπάρχει στον φάκελο %2.")
      .arg(page, folder);
}

QString noBrowserText(const QString& page) {
  return inLanguage("No program on this computer opens the help page %1.",
                    "Κανένα πρόγραμμα του υπολογιστή δεν ανοίγει τη σελίδα βοήθειας %1.")
      .arg(page);
}

void nameParts(QFileDialog& picker) {
  picker.setLabelText(QFileDialog::LookIn, inLanguage("Look in:", "Αναζήτηση σε:"));
  picker.setLabelText(QFileDialog::FileName, inLanguage("File name:", "Όνομα αρχείου:"));
  picker.setLabelText(QFileDialog::FileType, inLanguage("Files of type:", "Τύπος αρχείων:"));
  picker.setLabelText(QFileDialog::Accept, inLanguage("Open", "Άνοιγμα"));
  picker.setLabelText(QFileDialog::Reject, buttonText(MessageResult::Cancel));
}

void nameParts(QColorDialog& picker) {
  picker.setWindowTitle(inLanguage("Select a colour", "Επιλογή χρώματος"));
  if (!speaksGreek()) return;
  translate(picker.findChildren<QLabel*>());
  translate(picker.findChildren<QPushButton*>());
  const auto* buttons = picker.findChild<QDialogButtonBox*>();
  if (buttons) buttons->button(QDialogButtonBox::Cancel)->setText(buttonText(MessageResult::Cancel));
}

}  // namespace vmgv
