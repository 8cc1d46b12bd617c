#include "adapters/workbook/new_package.h"

#include "adapters/workbook/encode.h"
#include "adapters/workbook/pivot_xml.h"

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
    "<Override PartName=\"/docProps/app.xml\" ContentType=\"" OFFICE_TYPE "extended-properties+xml\"/>";
constexpr const char* kPivotContentTypes =
    "<Override PartName=\"/xl/worksheets/sheet2.xml\" ContentType=\"" OFFICE_TYPE
    "spreadsheetml.worksheet+xml\"/>"
    "<Override PartName=\"/xl/pivotTables/pivotTable1.xml\" ContentType=\"" OFFICE_TYPE
    "spreadsheetml.pivotTable+xml\"/>"
    "<Override PartName=\"/xl/pivotCache/pivotCacheDefinition1.xml\" ContentType=\"" OFFICE_TYPE
    "spreadsheetml.pivotCacheDefinition+xml\"/>";

constexpr const char* kPackageRelations =
    "<Relationship Id=\"rId1\" Type=\"" OPENXML
    "officeDocument/2006/relationships/officeDocument\" Target=\"xl/workbook.xml\"/>"
    "<Relationship Id=\"rId2\" Type=\"" OPENXML
    "package/2006/relationships/metadata/core-properties\" Target=\"docProps/core.xml\"/>"
    "<Relationship Id=\"rId3\" Type=\"" OPENXML
    "officeDocument/2006/relationships/extended-properties\" Target=\"docProps/app.xml\"/>";

constexpr const char* kRelationships = "<Relationships xmlns=\"" OPENXML "package/2006/relationships\">";
constexpr const char* kWorkbookRelations =
    "<Relationship Id=\"rId1\" Type=\"" OPENXML
    "officeDocument/2006/relationships/worksheet\" Target=\"worksheets/sheet1.xml\"/>"
    "<Relationship Id=\"rId2\" Type=\"" OPENXML
    "officeDocument/2006/relationships/styles\" Target=\"styles.xml\"/>";
constexpr const char* kPivotRelations =
    "<Relationship Id=\"rId3\" Type=\"" OPENXML
    "officeDocument/2006/relationships/worksheet\" Target=\"worksheets/sheet2.xml\"/>"
    "<Relationship Id=\"rId4\" Type=\"" OPENXML
    "officeDocument/2006/relationships/pivotCacheDefinition\" "
    "Target=\"pivotCache/pivotCacheDefinition1.xml\"/>";
constexpr const char* kSheetToTable =
    "<Relationship Id=\"rId1\" Type=\"" OPENXML
    "officeDocument/2006/relationships/pivotTable\" Target=\"../pivotTables/pivotTable1.xml\"/>";
constexpr const char* kTableToCache = "<Relationship Id=\"rId1\" Type=\"" OPENXML
                                      "officeDocument/2006/relationships/pivotCacheDefinition\" "
                                      "Target=\"../pivotCache/pivotCacheDefinition1.xml\"/>";

// Nothing here tells who exported or when.
constexpr const char* kCoreProperties =
    "<cp:coreProperties xmlns:cp=\"" OPENXML
    "package/2006/metadata/core-properties\" xmlns:dc=\"http://purl.org/dc/elements/1.1/\">"
    "<dc:creator>vmGridViews</dc:creator></cp:coreProperties>";

constexpr const char* kAppProperties = "<Properties xmlns=\"" OPENXML
                                       "officeDocument/2006/extended-properties\">"
                                       "<Application>vmGridViews</Application></Properties>";

constexpr const char* kLinks = " xmlns:r=\"" OPENXML "officeDocument/2006/relationships\"";

#undef OPENXML
#undef OFFICE_TYPE

// A name that the first sheet does not have.
std::string pivotSheetName(const std::string& sheetName) {
  return sheetName == "Sheet2" ? "Sheet3" : "Sheet2";
}

std::string workbookXml(const std::string& sheetName, bool hasPivot) {
  std::string xml = std::string("<workbook") + kSheetNamespace + kLinks + "><bookViews><workbookView" +
                    (hasPivot ? " activeTab=\"1\"" : "") + "/></bookViews><sheets><sheet name=\"" +
                    attributeText(sheetName) + "\" sheetId=\"1\" r:id=\"rId1\"/>";
  if (hasPivot) xml += "<sheet name=\"" + pivotSheetName(sheetName) + "\" sheetId=\"2\" r:id=\"rId3\"/>";
  xml += "</sheets>";
  if (hasPivot) xml += "<pivotCaches><pivotCache cacheId=\"1\" r:id=\"rId4\"/></pivotCaches>";
  return xml + "</workbook>";
}

}  // namespace

// [Content_Types].xml
// _rels/.rels                     leads to the workbook and the properties
// docProps/core.xml  app.xml
// xl/workbook.xml                 names the sheets
// xl/_rels/workbook.xml.rels      leads to the sheets, the styles and the pivot table's cache
// xl/styles.xml
// xl/worksheets/sheet1.xml        the rows, their texts inline: no string table to keep in memory
// xl/worksheets/sheet2.xml        the pivot table's cells, with the way to
// xl/pivotTables/pivotTable1.xml  its layout, with the way to
// xl/pivotCache/pivotCacheDefinition1.xml
void writeNewParts(Package& package, const std::string& sheetName, const StyleTable& styles,
                   const SheetStream& sheet, const std::optional<Pivot>& pivot) {
  const auto add = [&package](const char* part, const std::string& xml) {
    package.add(part, std::string(kXmlHead) + xml);
  };
  const auto addRelations = [&add](const char* part, const std::string& relations) {
    add(part, kRelationships + relations + "</Relationships>");
  };
  add("[Content_Types].xml", std::string(kContentTypes) + (pivot ? kPivotContentTypes : "") + "</Types>");
  addRelations("_rels/.rels", kPackageRelations);
  add("docProps/core.xml", kCoreProperties);
  add("docProps/app.xml", kAppProperties);
  add("xl/workbook.xml", workbookXml(sheetName, pivot.has_value()));
  addRelations("xl/_rels/workbook.xml.rels",
               std::string(kWorkbookRelations) + (pivot ? kPivotRelations : ""));
  add("xl/styles.xml", styles.xml());
  sheet.writeTo(package, "xl/worksheets/sheet1.xml");
  if (!pivot) return;
  add("xl/worksheets/sheet2.xml", pivotSheetXml(*pivot));
  addRelations("xl/worksheets/_rels/sheet2.xml.rels", kSheetToTable);
  add("xl/pivotTables/pivotTable1.xml", pivotTableXml(*pivot));
  addRelations("xl/pivotTables/_rels/pivotTable1.xml.rels", kTableToCache);
  add("xl/pivotCache/pivotCacheDefinition1.xml", pivotCacheXml(*pivot, sheetName));
}

}  // namespace vmgv::workbook
