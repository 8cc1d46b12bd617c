// Any XML as the parts of a template: it is refused, or filled with a few rows, and then what is written is a
// workbook that can be filled again.
//
// The input is a list of parts, each behind a line "=== NAME"; they replace those of a small template.
#include <map>

#include "adapters/workbook/application.h"
#include "adapters/workbook/package.h"
#include "adapters/workbook/paths.h"
#include "adapters/workbook/template_book.h"
#include "fuzz/memory_file.h"
#include "support/automation/convert.h"
#include "support/automation/error.h"

namespace {

using namespace vmgv;

using Parts = std::map<std::string, std::string, std::less<>>;

const std::string kRelation =
    "<Relationship Type='http://schemas.openxmlformats.org/officeDocument/2006/relationships/";

// Its sheet Data is xl/d.xml, another one xl/r.xml.
Parts smallTemplate() {
  return {
      {"[Content_Types].xml",
       "<Types><Override PartName='/xl/w.xml' ContentType='application/vnd.openxmlformats-officedocument."
       "spreadsheetml.template.main+xml'/><Override PartName='/xl/t.xml' ContentType='t'/></Types>"},
      {"_rels/.rels", "<R>" + kRelation + "officeDocument' Id='w' Target='xl/w.xml'/></R>"},
      {"xl/w.xml", "<w><sheets><sheet name='Data' id='d'/><sheet name='R' id='r'/></sheets></w>"},
      {"xl/_rels/w.xml.rels", "<R>" + kRelation + "worksheet' Id='d' Target='d.xml'/>" + kRelation +
                                  "worksheet' Id='r' Target='r.xml'/>" + kRelation +
                                  "styles' Id='s' Target='s.xml'/>" + kRelation +
                                  "pivotCacheDefinition' Id='p' Target='p.xml'/></R>"},
      {"xl/_rels/d.xml.rels", "<R>" + kRelation + "table' Id='t' Target='t.xml'/></R>"},
      {"xl/d.xml", "<s><sheetData/><tableParts count='1'><tablePart id='t'/></tableParts></s>"},
      {"xl/r.xml", "<s><sheetData><row><c t='s'><f>A1</f><v>1</v></c></row></sheetData></s>"},
      {"xl/s.xml", "<s><cellXfs count='1'><xf numFmtId='0'/></cellXfs></s>"},
      {"xl/p.xml", "<p><worksheetSource ref='A1:B9' sheet='Data'/></p>"},
      {"xl/t.xml", "<t displayName='T' ref='A1:B2'><tableColumns><tableColumn id='1'/></tableColumns></t>"}};
}

Parts partsOf(std::string_view input) {
  Parts parts = smallTemplate();
  constexpr std::string_view kMark = "=== ";
  while (input.starts_with(kMark)) {
    const std::size_t nameEnd = std::min(input.find('\n'), input.size());
    const std::size_t end = std::min(input.find("\n=== ", nameEnd), input.size());
    const std::string name(input.substr(kMark.size(), nameEnd - kMark.size()));
    parts[name] = input.substr(std::min(nameEnd + 1, end), end - std::min(nameEnd + 1, end));
    input.remove_prefix(std::min(end + 1, input.size()));
  }
  return parts;
}

class Host final : public WorkbookHost {
 public:
  std::string targetPath() override { return (fuzz::scratchFolder() / "filled.xlsx").string(); }
  void finished(const std::string&, std::int64_t) override {}
};

void fill(const std::string& path) {
  Host host;
  const ObjectRef application = makeWorkbookApplication(host);
  const ObjectRef book = application.object("Workbooks").object("Open", path);
  const ObjectRef sheet = book.object("Sheets", "Data");
  sheet.object("Cells").call("ClearContents");
  for (int row = 1; row <= 4; ++row) {
    sheet.object("Cells", row, 1).put("Value", "text " + std::to_string(row));
    sheet.object("Cells", row, 2).put("Value", row == 1 ? Value("second") : Value(row));
  }
  sheet.object("Cells").object("EntireColumn").call("AutoFit");
  const ObjectRef caches = book.object("PivotCaches");
  for (int i = 1; i <= toLong(caches.get("Count")); ++i) caches.item(i).object().call("Refresh");
  application.put("Visible", true);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::filesystem::path path = fuzz::scratchFolder() / "template.xlsx";
  try {
    workbook::ReplacementFile file(path.string());
    workbook::Package package(file);
    for (const auto& [name, text] : partsOf({reinterpret_cast<const char*>(data), size})) {
      if (text.empty()) continue;  // a part that is missing
      package.add(name, text);
    }
    package.finish();
    file.commit();
    fill(path.string());
  } catch (const Error&) {
    return 0;
  }
  std::filesystem::rename(fuzz::scratchFolder() / "filled.xlsx", path);
  fill(path.string());  // an Error here is a finding
  return 0;
}
