#include "servers/workbook/documents.h"

#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include "frontends/com/text.h"
#include "frontends/com/wall.h"

namespace vmgv {
namespace {

std::wstring namedFolder() {
  constexpr const wchar_t* kVariable = L"VMG_WORKBOOK_FOLDER";
  std::wstring folder(GetEnvironmentVariableW(kVariable, nullptr, 0), L'\0');
  folder.resize(GetEnvironmentVariableW(kVariable, folder.data(), static_cast<DWORD>(folder.size())));
  return folder;
}

std::wstring documentsFolder() {
  PWSTR path = nullptr;
  const HRESULT found = SHGetKnownFolderPath(FOLDERID_Documents, KF_FLAG_CREATE, nullptr, &path);
  const std::wstring folder = path ? path : L"";
  CoTaskMemFree(path);
  check(found, "the documents folder");
  return folder;
}

bool hasProgram(const wchar_t* extension) {
  DWORD length = 0;
  return AssocQueryStringW(ASSOCF_INIT_IGNOREUNKNOWN, ASSOCSTR_EXECUTABLE, extension, L"open", nullptr,
                           &length) == S_FALSE &&
         length > 1;
}

}  // namespace

std::string Documents::targetPath() {
  const std::wstring named = namedFolder();
  return freshWorkbookPath(narrow(named.empty() ? documentsFolder() : named));
}

void Documents::finished(const std::string& path, std::int64_t) {
  if (!namedFolder().empty() || !hasProgram(L".xlsx")) return;
  const std::wstring file = wide(path);
  SHELLEXECUTEINFOW how{};
  how.cbSize = sizeof how;
  how.fMask =
      SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC;  // the file lies there, whether the program starts or not
  how.lpVerb = L"open";
  how.lpFile = file.c_str();
  how.nShow = SW_SHOWNORMAL;
  ShellExecuteExW(&how);
}

}  // namespace vmgv
