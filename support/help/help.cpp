#include "support/help/help.h"

#include "support/automation/class_table.h"
#include "support/help/setting.h"

namespace vmgv {
namespace {

constexpr const char* kHelpFile = "VMgridViews.chm";
constexpr const char* kTopicExtension = ".htm";

}  // namespace

const std::string& Help::HelpFolder() {
  if (!folder_.empty()) return folder_;
  const char separator = system_.pathSeparator();
  const std::string standard = system_.commonFilesFolder() + "Velmora" + separator + "Help" + separator;
  std::string folder = system_.setting(kHelpSettingsKey, kHelpFolderSetting, standard);
  if (!folder.ends_with(separator)) folder += separator;
  folder_ = std::move(folder);
  return folder_;
}

std::string Help::helpFile() { return HelpFolder() + kHelpFile; }

void Help::ShowHelpTopic(std::string& topic, Form* owner, const std::string& windowType) {
  const std::string lower = lowerCase(topic);
  if (!lower.ends_with(".htm") && !lower.ends_with(".html")) topic += kTopicExtension;
  std::string file = helpFile();
  if (!windowType.empty()) file += ">" + windowType;
  helpWindow_ = system_.openHelp(owner, file, HelpCommand::Topic, topic);
}

void Help::ShowHelpContents(Form* owner) {
  helpWindow_ = system_.openHelp(owner, helpFile(), HelpCommand::Contents, {});
}

}  // namespace vmgv
