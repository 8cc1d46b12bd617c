#include "adapters/workbook/old_workbook.h"

#include <filesystem>
#include <random>

#include "adapters/workbook/bytes.h"
#include "adapters/workbook/compound_file.h"
#include "adapters/workbook/office.h"
#include "adapters/workbook/package_reader.h"
#include "adapters/workbook/paths.h"
#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

constexpr std::uint64_t kMostSize = std::uint64_t{128} << 20;  // bytes
constexpr const char* kUseToday = "; save it as .xlsx or .xltx";

// Of records that begin a workbook's stream ([MS-XLS] 2.3).
constexpr std::uint16_t kBeginning = 0x0809, kPassword = 0x002F, kSheet = 0x0085;
constexpr std::size_t kRecordHead = 4, kLookedAt = std::size_t{64} * 1024;

enum class Condition { Good, Damaged, Protected };

// LibreOffice takes its time to find out; this is seen at once. The password stands before the sheets.
Condition conditionOf(std::string_view records) {
  bool first = true;
  while (records.size() >= kRecordHead) {
    const std::uint16_t kind = number16(records, 0), size = number16(records, 2);
    if (first && kind != kBeginning) return Condition::Damaged;
    first = false;
    if (kind == kPassword) return Condition::Protected;
    if (kind == kSheet) return Condition::Good;
    if (records.size() < kRecordHead + size) break;
    records.remove_prefix(kRecordHead + size);
  }
  return first ? Condition::Damaged : Condition::Good;
}

}  // namespace

bool isOldWorkbook(const std::string& path) {
  const InputFile file(path);
  return isCompoundFile(file.read(0, 8)) && !CompoundFile(file).find(u"EncryptedPackage");
}

void requireGoodOldWorkbook(const std::string& path) {
  const InputFile file(path);
  if (file.size() > kMostSize)
    refuseWorkbook(path, std::string("it is too large for its old format") + kUseToday);
  const CompoundFile container(file);
  auto stream = container.find(u"Workbook");
  if (!stream) stream = container.find(u"Book");  // before 1997
  if (!stream) refuseWorkbook(path, "it is no workbook, or damaged");
  const auto records = container.read(*stream, kLookedAt);
  switch (records ? conditionOf(*records) : Condition::Damaged) {
    case Condition::Good: return;
    case Condition::Damaged: refuseWorkbook(path, "it is damaged");
    case Condition::Protected: refuseWorkbook(path, "it is protected by a password");
  }
}

// Nobody else can look into it.
ConvertedWorkbook::Folder::Folder() {
  std::random_device random;
  std::error_code failed;
  const auto parent = std::filesystem::temp_directory_path(failed);
  for (int attempts = 0; path_.empty() && attempts < 100; ++attempts) {
    const auto folder = parent / ("vmgv-" + std::to_string(random()));
    if (!std::filesystem::create_directory(folder, failed)) continue;
    path_ = textOf(folder);
    std::filesystem::permissions(folder, std::filesystem::perms::owner_all, failed);
  }
}

ConvertedWorkbook::Folder::~Folder() {
  std::error_code ignored;
  if (!path_.empty()) std::filesystem::remove_all(pathOf(path_), ignored);
}

ConvertedWorkbook::ConvertedWorkbook(const std::string& path) : path_(folder_.path() + "/old.xlsx") {
  requireGoodOldWorkbook(path);
  std::error_code failed;
  std::filesystem::copy_file(pathOf(path), pathOf(folder_.path() + "/old.xls"), failed);
  if (folder_.path().empty() || failed) {
    throw Error(ErrorNumber::PathAccess,
                "The workbook " + path + " cannot be converted: " + failed.message());
  }
  switch (port::convertOldWorkbook(folder_.path())) {
    case port::Conversion::Done: return;
    case port::Conversion::NoProgram:
      refuseWorkbook(
          path, std::string("it is of the format before 2007, and LibreOffice, which could convert it, is "
                            "not installed") +
                    kUseToday);
    case port::Conversion::TooLong:
      refuseWorkbook(path, std::string("LibreOffice takes too long to convert it") + kUseToday);
    case port::Conversion::Failed: refuseWorkbook(path, "LibreOffice cannot convert it; it may be damaged");
  }
}

}  // namespace vmgv::workbook
