#include "adapters/grid/saved_settings.h"

#include <algorithm>

#include "adapters/grid/saved_text.h"

namespace vmgv {
namespace {

// Each setting as text, and back: false where the text makes no sense.
struct Setting {
  const char* name;
  std::string (*text)(const GridSettings&);
  bool (*take)(GridSettings&, std::string_view);
};

using Text = std::string_view;

template <bool GridSettings::*member>
constexpr Setting flag(const char* name) {
  return {name, [](const GridSettings& s) { return std::string(savedFlag(s.*member)); },
          [](GridSettings& s, Text text) { return takeInto(s.*member, flagOfWord(text)); }};
}

template <std::int32_t GridSettings::*member>
constexpr Setting color(const char* name) {
  return {name, [](const GridSettings& s) { return savedColor(s.*member); },
          [](GridSettings& s, Text text) { return takeInto(s.*member, numberOfWord(text)); }};
}

template <bool GridFont::*member>
constexpr Setting fontFlag(const char* name) {
  return {name, [](const GridSettings& s) { return std::string(savedFlag(s.font.*member)); },
          [](GridSettings& s, Text text) { return takeInto(s.font.*member, flagOfWord(text)); }};
}

constexpr Setting kSettings[] = {
    {"previewRowLines", [](const GridSettings& s) { return std::to_string(s.previewRowLines); },
     [](GridSettings& s, Text text) { return takeInto(s.previewRowLines, numberOfWord(text)); }},
    flag<&GridSettings::useEvenOddColor>("useEvenOddColor"),
    flag<&GridSettings::columnAutoResize>("columnAutoResize"),
    flag<&GridSettings::groupByBoxVisible>("groupByBoxVisible"),
    {"groupByBoxInfoText", [](const GridSettings& s) { return quotedText(s.groupByBoxInfoText); },
     [](GridSettings& s, Text text) { return s.groupByBoxInfoText = text, true; }},
    {"groupFooterStyle", [](const GridSettings& s) { return std::to_string(s.groupFooterStyle); },
     [](GridSettings& s, Text text) { return takeInto(s.groupFooterStyle, numberOfWord(text)); }},
    color<&GridSettings::backColor>("backColor"),
    color<&GridSettings::foreColor>("foreColor"),
    {"fontName", [](const GridSettings& s) { return quotedText(s.font.name); },
     [](GridSettings& s, Text text) { return s.font.name = text, true; }},
    {"fontSize", [](const GridSettings& s) { return savedNumber(s.font.size); },
     [](GridSettings& s, Text text) { return takeFontSize(s.font.size, text); }},
    fontFlag<&GridFont::bold>("fontBold"),
    fontFlag<&GridFont::italic>("fontItalic"),
    fontFlag<&GridFont::underline>("fontUnderline"),
    fontFlag<&GridFont::strikethrough>("fontStrikethru"),
};

const Setting* find(std::string_view name) noexcept {
  const auto found = std::find_if(std::begin(kSettings), std::end(kSettings),
                                  [&](const Setting& s) { return name == s.name; });
  return found == std::end(kSettings) ? nullptr : found;
}

}  // namespace

std::vector<std::pair<std::string, std::string>> savedSettings(const GridSettings& settings) {
  std::vector<std::pair<std::string, std::string>> all;
  for (const Setting& setting : kSettings) all.emplace_back(setting.name, setting.text(settings));
  return all;
}

bool isSetting(std::string_view name) noexcept { return find(name) != nullptr; }

bool takeSavedSetting(GridSettings& settings, std::string_view name, std::string_view value) {
  const Setting* setting = find(name);
  return setting && setting->take(settings, value);
}

}  // namespace vmgv
