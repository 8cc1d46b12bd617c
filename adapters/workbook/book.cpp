// The parts of a workbook and their way into the package.
#include "adapters/workbook/book.h"

#include "adapters/workbook/encode.h"
#include "adapters/workbook/package.h"
#include "adapters/workbook/paths.h"
#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

#define OPENXML "http://schemas.openxmlformats.org/"
#define OFFICE_TYPE "application/vnd.openxmlformats-officedocument."

constexpr const char* kContentTypes =
    "<Types xmlns=\"" OPENXML
    "package/2006/content-types\">"
    "<Default Extension=\"rels\" ContentType=\"application/vnd.openxmlformats-package.relationships+xml\"/>"
    "<Default Extension=\"xml\" ContentType=\"application/xml\"/>"
    "<Override PartName=\"/xl/workbook.xml\" ContentType=\"" OFFICE_TYPE
    "spreadsheetml.sheet.main+xml\"/>"
    "<Override PartName=\"/xl/worksheets/sheet1.xml\" ContentType=\"" OFFICE_TYPE
    "spreadsheetml.worksheet+xml\"/>"
    "<Override PartName=\"/xl/styles.xml\" ContentType=\"" OFFICE_TYPE
    "spreadsheetml.styles+xml\"/>"
    "<Override PartName=\"/docProps/core.xml\" "
    "ContentType=\"application/vnd.openxmlformats-package.core-properties+xml\"/>"
    "<Override PartName=\"/docProps/app.xml\" ContentType=\"" OFFICE_TYPE
    "extended-properties+xml\"/>"
    "</Types>";

constexpr const char* kPackageRelations =
    "<Relationships xmlns=\"" OPENXML
    "package/2006/relationships\">"
    "<Relationship Id=\"rId1\" Type=\"" OPENXML
    "officeDocument/2006/relationships/officeDocument\" Target=\"xl/workbook.xml\"/>"
    "<Relationship Id=\"rId2\" Type=\"" OPENXML
    "package/2006/relationships/metadata/core-properties\" Target=\"docProps/core.xml\"/>"
    "<Relationship Id=\"rId3\" Type=\"" OPENXML
    "officeDocument/2006/relationships/extended-properties\" Target=\"docProps/app.xml\"/>"
    "</Relationships>";

constexpr const char* kWorkbookRelations =
    "<Relationships xmlns=\"" OPENXML
    "package/2006/relationships\">"
    "<Relationship Id=\"rId1\" Type=\"" OPENXML
    "officeDocument/2006/relationships/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
    "<Relationship Id=\"rId2\" Type=\"" OPENXML
    "officeDocument/2006/relationships/styles\" Target=\"styles.xml\"/>"
    "</Relationships>";

// Nothing here tells who exported or when.
constexpr const char* kCoreProperties =
    "<cp:coreProperties xmlns:cp=\"" OPENXML
    "package/2006/metadata/core-properties\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\">"
    "<dc:creator>vmGridViews</dc:creator></cp:coreProperties>";

constexpr const char* kAppProperties = "<Properties xmlns=\"" OPENXML
                                       "officeDocument/2006/extended-properties\">"
                                       "<Application>vmGridViews</Application></Properties>";

std::string workbookXml(const std::string& sheetName) {
  return "<workbook xmlns=\"" OPENXML "spreadsheetml/2006/main\" xmlns:r=\"" OPENXML
         "officeDocument/2006/relationships\"><bookViews><workbookView/></bookViews><sheets><sheet name=\"" +
         attributeText(sheetName) + "\" sheetId=\"1\" r:id=\"rId1\"/></sheets></workbook>";
}

#undef OPENXML
#undef OFFICE_TYPE

// [Content_Types].xml
// _rels/.rels                     leads to the workbook and the properties
// docProps/core.xml  app.xml
// xl/workbook.xml                 names the sheet
// xl/_rels/workbook.xml.rels      leads to the sheet and the styles
// xl/styles.xml
// xl/worksheets/sheet1.xml        the rows, their texts inline: no string table to keep in memory
void writeParts(Package& package, const std::string& sheetName, const StyleTable& styles,
                const SheetStream& sheet) {
  const auto add = [&package](const char* part, const std::string& xml) {
    package.add(part, std::string(kXmlHead) + xml);
  };
  add("[Content_Types].xml", kContentTypes);
  add("_rels/.rels", kPackageRelations);
  add("docProps/core.xml", kCoreProperties);
  add("docProps/app.xml", kAppProperties);
  add("xl/workbook.xml", workbookXml(sheetName));
  add("xl/_rels/workbook.xml.rels", kWorkbookRelations);
  add("xl/styles.xml", styles.xml());
  sheet.writeTo(package, "xl/worksheets/sheet1.xml");
}

}  // namespace

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

std::int64_t Book::publish(const std::string& path) {
  if (!sheet_) refuse();
  if (!fill_) sheet_->finish();
  state_ = State::Complete;
  ReplacementFile file(path);
  Package package(file);
  if (fill_) {
    fill_->write(package, *sheet_, styles_);
  } else {
    writeParts(package, sheetName_, styles_, *sheet_);
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
