#include "adapters/workbook/pivot_xml.h"

#include <algorithm>

#include "adapters/workbook/encode.h"
#include "support/text/utf8.h"

namespace vmgv::workbook {
namespace {

constexpr int kFirstRow = 3;         // as programs place a new pivot table, with room for a filter above
constexpr const char* kTotal = "Σ";  // in any language
constexpr const char* kBlank = "(blank)";                       // as programs call it
constexpr std::size_t kNarrowestField = 10, kWidestField = 60;  // characters

std::string number(std::size_t value) { return std::to_string(value); }

std::string dataName(const Pivot& pivot) {
  return std::string(pivot.counts ? "# " : "Σ ") +
         pivot.fields[static_cast<std::size_t>(pivot.dataField) - 1];
}

const std::string& lineName(const Pivot& pivot) {
  return pivot.fields[static_cast<std::size_t>(*pivot.lineField) - 1];
}

std::string place(const Pivot& pivot) {
  const int rows = static_cast<int>(pivot.lines.size());
  return areaName(pivot.lineField ? Area{kFirstRow, 1, kFirstRow + rows + 1, 2}
                                  : Area{kFirstRow, 1, kFirstRow + 1, 1});
}

// `text` as XML.
std::string textCell(const std::string& name, const std::string& text) {
  return "<c r=\"" + name + "\" t=\"inlineStr\"><is><t xml:space=\"preserve\">" + text + "</t></is></c>";
}

std::string numberCell(const std::string& name, double value) {
  char digits[32];
  return "<c r=\"" + name + "\"><v>" + std::string(digits, encodeNumber(digits, value)) + "</v></c>";
}

}  // namespace

std::string pivotSheetXml(const Pivot& pivot) {
  std::string rows;
  int row = kFirstRow;
  const auto addRow = [&](const std::string& label, const std::string& value) {
    rows += "<row r=\"" + std::to_string(row) + "\">" + label + value + "</row>";
    ++row;
  };
  const auto cell = [&](int column) { return cellName(row, column); };
  std::size_t widest = 0;
  if (pivot.lineField) {
    addRow(textCell(cell(1), elementText(lineName(pivot))), textCell(cell(2), elementText(dataName(pivot))));
    for (const PivotLine& line : pivot.lines) {
      widest = std::max(widest, countCharacters(line.label));
      addRow(textCell(cell(1), line.label.empty() ? kBlank : line.label), numberCell(cell(2), line.result));
    }
    addRow(textCell(cell(1), kTotal), numberCell(cell(2), pivot.total));
  } else {
    addRow(textCell(cell(1), elementText(dataName(pivot))), "");
    addRow(numberCell(cell(1), pivot.total), "");
  }
  const std::size_t own = countCharacters(pivot.lineField ? lineName(pivot) : dataName(pivot));
  const std::string width =
      number(std::min(std::max(widest, own), kWidestField) + 4);  // with the list's button
  return std::string("<worksheet") + kSheetNamespace + "><dimension ref=\"" + place(pivot) +
         "\"/><sheetViews><sheetView tabSelected=\"1\" workbookViewId=\"0\"/></sheetViews>"
         "<sheetFormatPr defaultRowHeight=\"15\"/><cols><col min=\"1\" max=\"1\" width=\"" +
         width + "\" customWidth=\"1\"/><col min=\"2\" max=\"2\" width=\"" +
         number(std::clamp(countCharacters(dataName(pivot)), kNarrowestField, kWidestField) + 4) +
         "\" customWidth=\"1\"/></cols><sheetData>" + rows +
         "</sheetData><pageMargins left=\"0.7\" right=\"0.7\" top=\"0.75\" bottom=\"0.75\" header=\"0.3\" "
         "footer=\"0.3\"/></worksheet>";
}

std::string pivotTableXml(const Pivot& pivot) {
  std::string fields, items, rowItems;
  for (std::size_t i = 0; i < pivot.lines.size(); ++i) {
    items += "<item x=\"" + number(i) + "\"/>";
    rowItems += i == 0 ? "<i><x" : "<i><x v=\"" + number(i) + '"';
    rowItems += "/></i>";
  }
  const int count = static_cast<int>(pivot.fields.size());
  for (int column = 1; column <= count; ++column) {
    fields += "<pivotField";
    if (column == pivot.dataField) fields += " dataField=\"1\"";
    if (column == pivot.lineField) {
      fields += " axis=\"axisRow\" showAll=\"0\" sortType=\"ascending\"><items count=\"";
      fields += number(pivot.lines.size() + 1) + "\">";
      fields += items + "<item t=\"default\"/></items></pivotField>";
    } else {
      fields += " showAll=\"0\"/>";
    }
  }
  std::string axis = "<rowItems count=\"1\"><i/></rowItems>";
  if (pivot.lineField) {
    axis = "<rowFields count=\"1\"><field x=\"" + std::to_string(*pivot.lineField - 1) +
           "\"/></rowFields><rowItems count=\"" + number(pivot.lines.size() + 1) + "\">" + rowItems +
           "<i t=\"grand\"><x/></i></rowItems>";
  }
  const std::string caption =
      pivot.lineField ? " rowHeaderCaption=\"" + attributeText(lineName(pivot)) + '"' : "";
  return std::string("<pivotTableDefinition") + kSheetNamespace +
         " name=\"PivotTable1\" cacheId=\"1\" applyNumberFormats=\"0\" applyBorderFormats=\"0\" "
         "applyFontFormats=\"0\" applyPatternFormats=\"0\" applyAlignmentFormats=\"0\" "
         "applyWidthHeightFormats=\"1\" dataCaption=\"" +
         kTotal + "\" grandTotalCaption=\"" + kTotal +
         "\" updatedVersion=\"3\" minRefreshableVersion=\"3\" useAutoFormatting=\"1\" itemPrintTitles=\"1\" "
         "createdVersion=\"3\" indent=\"0\" outline=\"1\" outlineData=\"1\" multipleFieldFilters=\"0\"" +
         caption + "><location ref=\"" + place(pivot) +
         "\" firstHeaderRow=\"1\" firstDataRow=\"1\" firstDataCol=\"" + (pivot.lineField ? "1" : "0") +
         "\"/><pivotFields count=\"" + std::to_string(count) + "\">" + fields + "</pivotFields>" + axis +
         "<colItems count=\"1\"><i/></colItems><dataFields count=\"1\"><dataField name=\"" +
         attributeText(dataName(pivot)) + "\" fld=\"" + std::to_string(pivot.dataField - 1) + '"' +
         (pivot.counts ? " subtotal=\"count\"" : "") +
         " baseField=\"0\" baseItem=\"0\"/></dataFields><pivotTableStyleInfo name=\"PivotStyleLight16\" "
         "showRowHeaders=\"1\" showColHeaders=\"1\" showRowStripes=\"0\" showColStripes=\"0\" "
         "showLastColumn=\"1\"/></pivotTableDefinition>";
}

std::string pivotCacheXml(const Pivot& pivot, const std::string& sheetName) {
  std::string fields, items;
  for (const PivotLine& line : pivot.lines) {
    items += line.label.empty() ? "<m/>" : "<s v=\"" + quotedText(line.label) + "\"/>";
  }
  const bool hasBlank = pivot.lineField && pivot.lines.back().label.empty();
  const int count = static_cast<int>(pivot.fields.size());
  for (int column = 1; column <= count; ++column) {
    fields += "<cacheField name=\"" + attributeText(pivot.fields[static_cast<std::size_t>(column) - 1]) +
              "\" numFmtId=\"0\">";
    if (column == pivot.lineField) {
      fields += std::string("<sharedItems") + (hasBlank ? " containsBlank=\"1\"" : "") + " count=\"" +
                number(pivot.lines.size()) + "\">" + items + "</sharedItems>";
    } else {
      fields += "<sharedItems/>";
    }
    fields += "</cacheField>";
  }
  return std::string("<pivotCacheDefinition") + kSheetNamespace +
         " saveData=\"0\" refreshOnLoad=\"1\" createdVersion=\"3\" refreshedVersion=\"3\" "
         "minRefreshableVersion=\"3\"><cacheSource type=\"worksheet\"><worksheetSource ref=\"" +
         areaName(pivot.source) + "\" sheet=\"" + attributeText(sheetName) +
         "\"/></cacheSource><cacheFields count=\"" + std::to_string(count) + "\">" + fields +
         "</cacheFields></pivotCacheDefinition>";
}

}  // namespace vmgv::workbook
