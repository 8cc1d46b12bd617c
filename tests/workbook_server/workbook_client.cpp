// workbook_client PROGID: fills a workbook of that program with a value of each type and 10,000 rows,
// late-bound.
#include <chrono>
#include <cstdio>

#include "frontends/com/bridge.h"
#include "frontends/com/com_object.h"
#include "support/automation/error.h"
#include "support/automation/value.h"

using namespace vmgv;

namespace {

void fill(const char* progId) {
  const ObjectRef application = createAutomationObject(progId);
  const ObjectRef sheet = application.object("Workbooks").object("Add").object("ActiveSheet");
  static const Member cells("Cells"), value("Value"), format("NumberFormat");
  const Value values[] = {Value(),
                          Null{},
                          true,
                          std::int16_t{-5},
                          100000,
                          1.5f,
                          1234.5678901234567,
                          Currency{-123456},
                          *Decimal::fromText("12.50"),
                          Date{45000},
                          Date{45000.25},
                          "Αθήνα & <Ύδρα>",
                          "007",
                          std::string(32767, 'x'),
                          "line 1\nline 2"};
  int column = 0;
  for (const Value& each : values) sheet.object(cells, 1, ++column).put(value, each);
  try {
    sheet.object(cells, 1, 1).put(value, Date{-1});
  } catch (const Error& error) {
    std::printf("%d %s\n", static_cast<int>(error.number()), error.description());
  }

  constexpr int kRows = 10000, kColumns = 5;
  const auto start = std::chrono::steady_clock::now();
  for (int row = 2; row <= kRows + 1; ++row) {
    for (int i = 1; i <= kColumns; ++i) {
      const ObjectRef cell = sheet.object(cells, row, i);
      if (i == 1) cell.put(format, "@");
      cell.put(value, i == 1 ? Value(std::to_string(row)) : Value(row * 1.25 + i));
    }
  }
  const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
  std::fprintf(stderr, "%.0f ns a cell\n", time.count() / (kRows * kColumns));
  const ObjectRef merged =
      sheet.object("Range", sheet.object(cells, kRows + 2, 1), sheet.object(cells, kRows + 2, 3));
  merged.put("WrapText", true);
  merged.call("Merge");
  sheet.object(cells).object("EntireColumn").call("AutoFit");
  application.put("Visible", true);
}

}  // namespace

int main(int, char** arguments) {
  if (FAILED(OleInitialize(nullptr))) return 1;
  int status = 0;
  try {
    fill(arguments[1]);
  } catch (const Error& error) {
    std::printf("%d %s\n", static_cast<int>(error.number()), error.description());
    status = 1;
  }
  std::printf("%ld objects left\n", livingComObjects());
  OleUninitialize();
  return status;
}
