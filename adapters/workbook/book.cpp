// The parts of a workbook and their way into the package.
#include "adapters/workbook/book.h"

#include "adapters/workbook/encode.h"
#include "adapters/workbook/new_package.h"
#include "adapters/workbook/package.h"
#include "adapters/workbook/paths.h"
#include "support/automation/error.h"

namespace vmgv::workbook {

Book::Book(std::string name, const std::string& folder) : name_(std::move(name)) {
  sheet_.emplace(styles_, folder);
}

Book::Book(std::unique_ptr<TemplateFill> fill, const std::string& folder)
    : name_(textOf(pathOf(fill->book().package().path()).filename())),
      fill_(std::move(fill)),
      styles_(fill_->styles()) {
  if (!fill_->hasSheet()) return;
  sheetName_ = fill_->sheetName();
  sheet_.emplace(styles_, folder, &fill_->frame());
}

void Book::setSheetName(const std::string& name) {
  const bool edged = !name.empty() && (name.front() == '\'' || name.back() == '\'');
  if (name.empty() || utf16Units(name) > 31 || edged || name.find_first_of("[]:*?/\\") != std::string::npos) {
    throw Error(ErrorNumber::Application,
                "\"" + name +
                    "\" cannot name a worksheet: a name has 1 to 31 characters, none of []:*?/\\, " +
                    "and no apostrophe at its ends");
  }
  sheet();
  if (fill_) throw Error(ErrorNumber::Application, "The sheets of a template keep their names");
  sheetName_ = name;
}

void Book::refuse() const {
  throw Error(ErrorNumber::Application,
              "The workbook " + name_ +
                  (state_ == State::Closed    ? " is closed"
                   : state_ == State::Filling ? " has no worksheet Data"
                                              : " is complete and can no longer be changed"));
}

void Book::addPivot() {
  if (fill_) {
    throw Error(
        ErrorNumber::Application,
        "The template " + name_ + " takes no new pivot table; PivotCaches refreshes those that it has");
  }
  pivotSource(sheet());
  hasPivot_ = true;
}

std::int64_t Book::publish(const std::string& path) {
  if (!sheet_) refuse();
  if (!fill_ && state_ == State::Filling) {
    if (hasPivot_) sheet_->showBehind();
    sheet_->finish();
    if (hasPivot_) pivot_ = summarise(*sheet_);
  }
  state_ = State::Complete;
  ReplacementFile file(path);
  Package package(file);
  if (fill_) {
    fill_->write(package, *sheet_, styles_);
  } else {
    writeNewParts(package, sheetName_, styles_, *sheet_, pivot_);
  }
  package.finish();
  file.commit();

  const std::int64_t rows = sheet_->rows();
  name_ = textOf(pathOf(path).filename());
  state_ = State::Published;
  sheet_.reset();
  fill_.reset();
  return rows;
}

void Book::close() noexcept {
  state_ = State::Closed;
  sheet_.reset();
  fill_.reset();
}

}  // namespace vmgv::workbook
