#include "frontends/headless/headless_system.h"

#include <array>
#include <ctime>
#include <filesystem>

#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr int kPixelsPerInch = 96;  // at 100 %
constexpr int kPointsPerInch = 72;
constexpr int kFontPoints = 9;

}  // namespace

void HeadlessSystem::setScale(int percent) {
  pixelsPerInch_ = kPixelsPerInch * percent / 100;
  LogicalFont font;
  font.faceName = "DejaVu Sans";
  font.height = -kFontPoints * pixelsPerInch_ / kPointsPerInch;
  fonts_.emplace().fill(font);
}

bool HeadlessSystem::fileExists(const std::string& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(std::u8string(path.begin(), path.end()), ignored);
}

std::string HeadlessSystem::mediumDate() {
  if (!mediumDate_.empty()) return mediumDate_;
  const std::time_t now = std::time(nullptr);
  std::array<char, 32> text{};
  std::strftime(text.data(), text.size(), "%d-%b-%y", std::localtime(&now));
  return text.data();
}

std::intptr_t HeadlessSystem::openHelp(Form*, const std::string& file, HelpCommand command,
                                       const std::string& topic) {
  helpCalls_.push_back({file, command, topic});
  return 0;
}

ObjectRef HeadlessSystem::createObject(const std::string& programId) {
  ObjectRef object = objectFactory ? objectFactory(programId) : ObjectRef();
  if (!object) throw Error(ErrorNumber::CannotCreateObject, "Cannot create an object of " + programId);
  return object;
}

}  // namespace vmgv
