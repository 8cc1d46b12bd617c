#include "frontends/win32/win32_system.h"

#include <windows.h>

#include <htmlhelp.h>
#include <shlobj.h>

#include <algorithm>

#include "frontends/com/bridge.h"
#include "frontends/com/text.h"
#include "support/automation/error.h"
#include "support/strings/string_service.h"

namespace vmgv {
namespace {

constexpr const char* kSpreadsheet = "Excel.Application";
constexpr const char* kSettingsKey = "SOFTWARE\\Velmora\\vmGridViews";
constexpr const char* kSpreadsheetSetting = "excelProgId";

// A name that begins with "@" is another's, turned for writing downwards.
int CALLBACK noteFont(const LOGFONTW* font, const TEXTMETRICW*, DWORD, LPARAM names) {
  if (font->lfFaceName[0] != L'@') {
    reinterpret_cast<std::vector<std::string>*>(names)->push_back(narrow(font->lfFaceName));
  }
  return TRUE;
}

LogicalFont logicalFont(const LOGFONTW& font) {
  LogicalFont logical;
  logical.faceName = narrow(font.lfFaceName);
  logical.height = font.lfHeight;
  logical.weight = font.lfWeight;
  logical.italic = font.lfItalic == TRUE;
  logical.underline = font.lfUnderline == TRUE;
  logical.strikeOut = font.lfStrikeOut == TRUE;
  return logical;
}

std::optional<std::string> registryText(const std::wstring& key, const std::wstring& name, DWORD view) {
  const DWORD kinds = RRF_RT_REG_SZ | view;  // variables of an expandable one come expanded
  std::wstring text;
  DWORD bytes = 0;
  LSTATUS status =
      RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), name.c_str(), kinds, nullptr, nullptr, &bytes);
  while (status == ERROR_SUCCESS || status == ERROR_MORE_DATA) {  // it may grow in between
    if (!text.empty() && status == ERROR_SUCCESS) {
      text.resize(std::wcslen(text.c_str()));
      return narrow(text);
    }
    text.resize(bytes / sizeof(wchar_t) + 1);
    bytes = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    status = RegGetValueW(HKEY_LOCAL_MACHINE, key.c_str(), name.c_str(), kinds, nullptr, text.data(), &bytes);
  }
  return {};
}

std::string missingHelpText(const std::string& file, const std::string& topic) {
  const LanguageId language = processStringService().Language();
  const bool greek = language == kGreek || language == kNoLanguage;
  if (topic.empty()) {
    return greek ? "Το αρχείο βοήθειας " + file + " δεν υπάρχει."
                 : "The help file " + file + " does not exist.";
  }
  return greek ? "Η σελίδα βοήθειας " + topic + " δεν υπάρχει στο αρχείο " + file + "."
               : "The help page " + topic + " is not in the file " + file + ".";
}

// Loaded at the first call and kept: help windows outlive dialogs.
HWND htmlHelp(HWND owner, const std::wstring& file, UINT command, const std::wstring& topic) {
  using Open = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);
  static const HMODULE library = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (!library) return nullptr;
  const auto open = reinterpret_cast<Open>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpW")));
  return open ? open(owner, file.c_str(), command, reinterpret_cast<DWORD_PTR>(topic.c_str())) : nullptr;
}

}  // namespace

std::optional<DesktopFonts> Win32System::desktopFonts() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return {};
  return DesktopFonts{logicalFont(metrics.lfCaptionFont), logicalFont(metrics.lfSmCaptionFont),
                      logicalFont(metrics.lfMenuFont), logicalFont(metrics.lfStatusFont),
                      logicalFont(metrics.lfMessageFont)};
}

std::int32_t Win32System::pixelsPerInch() {
  const HDC screen = GetDC(nullptr);
  const int density = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return density;
}

std::string Win32System::setting(const std::string& key, const std::string& name,
                                 const std::string& defaultValue) {
  constexpr bool kIs64Bit = sizeof(void*) == 8;
  constexpr DWORD kOwn = kIs64Bit ? RRF_SUBKEY_WOW6464KEY : RRF_SUBKEY_WOW6432KEY;
  constexpr DWORD kOther = kIs64Bit ? RRF_SUBKEY_WOW6432KEY : RRF_SUBKEY_WOW6464KEY;
  for (const DWORD view : {kOwn, kOther}) {
    if (auto text = registryText(wide(key), wide(name), view)) return *text;
  }
  return defaultValue;
}

std::vector<std::string> Win32System::screenFonts() {
  std::vector<std::string> names;
  LOGFONTW all{};
  all.lfCharSet = DEFAULT_CHARSET;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &all, noteFont, reinterpret_cast<LPARAM>(&names), 0);
  ReleaseDC(nullptr, screen);
  std::sort(names.begin(), names.end());
  names.erase(std::unique(names.begin(), names.end()), names.end());
  return names;
}

std::string Win32System::mediumDate() {
  wchar_t text[64] = L"";
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, nullptr, L"dd-MMM-yy", text, 64, nullptr);
  return narrow(text);
}

std::string Win32System::commonFilesFolder() {
  wchar_t folder[MAX_PATH] = L"";
  SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILES_COMMON, nullptr, SHGFP_TYPE_CURRENT, folder);
  return narrow(folder) + pathSeparator();
}

bool Win32System::fileExists(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(wide(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::intptr_t Win32System::openHelp(Form* owner, const std::string& file, HelpCommand command,
                                    const std::string& topic) {
  // ">" begins the name of a help window.
  const std::string path = file.substr(0, file.find('>'));
  const bool there = GetFileAttributesW(wide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
  const HWND opened =
      there ? htmlHelp(desktop_.windowOf(owner), wide(file),
                       command == HelpCommand::Contents ? HH_DISPLAY_TOC : HH_DISPLAY_TOPIC, wide(topic))
            : nullptr;
  if (!opened) {
    desktop_.messageBox(missingHelpText(path, there ? topic : ""), MessageStyle::Information, {});
  }
  return reinterpret_cast<std::intptr_t>(opened);
}

ObjectRef Win32System::createObject(const std::string& programId) {
  if (objectFactory) {
    if (ObjectRef made = objectFactory(programId)) return made;
    throw Error(ErrorNumber::CannotCreateObject, "Cannot create an object of " + programId);
  }
  return createAutomationObject(
      programId == kSpreadsheet ? setting(kSettingsKey, kSpreadsheetSetting, programId) : programId);
}

}  // namespace vmgv
