#include "frontends/qt/box_texts.h"

#include "support/strings/string_service.h"

namespace vmgv {
namespace {

QString inLanguage(const char* english, const char* greek) {
  return QString::fromUtf8(speaksGreek() ? greek : english);
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

}  // namespace vmgv
