#include "hosts/gridhost/com_session.h"
//
#include <initguid.h>  // makes the libraries' headers define their ids
//
#include <shlobj.h>

#include "adapters/workbook/application.h"
#include "frontends/com/bridge.h"
#include "frontends/com/text.h"
#include "frontends/com/wall.h"
#include "hosts/gridhost/files.h"
#include "hosts/player/paths.h"
#include "string_service_library.h"
#include "vmgridviews.h"

namespace vmgv {
namespace {

constexpr const wchar_t* kControlLibrary = L"vmGridViews.dll";
constexpr const wchar_t* kTextsLibrary = L"vmGridViewsStrings.dll";
constexpr const wchar_t* kSpreadsheet = L"Excel.Application";

// Stays loaded to the end: what it has handed out may live as long.
HMODULE loadBeside(const wchar_t* name) {
  const std::filesystem::path path = programFolder() / name;
  const HMODULE library = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
  if (!library) check(HRESULT_FROM_WIN32(GetLastError()), pathText(path));
  return library;
}

template <class Function>
Function exported(HMODULE library, const char* name) {
  const auto found = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library, name)));
  if (!found) check(HRESULT_FROM_WIN32(GetLastError()), name);
  return found;
}

ComPtr<IClassFactory> factoryOf(HMODULE library, REFCLSID id) {
  ComPtr<IClassFactory> factory;
  const auto find = exported<decltype(&DllGetClassObject)>(library, "DllGetClassObject");
  check(find(id, IID_IClassFactory, factory.putVoid()), "DllGetClassObject");
  return factory;
}

std::string documentsFolder() {
  wchar_t folder[MAX_PATH] = L".";
  SHGetFolderPathW(nullptr, CSIDL_PERSONAL, nullptr, SHGFP_TYPE_CURRENT, folder);
  return narrow(folder);
}

bool isInstalled(const wchar_t* programId) {
  CLSID id;
  return SUCCEEDED(CLSIDFromProgID(programId, &id));
}

}  // namespace

ComApartment::ComApartment() { check(OleInitialize(nullptr), "COM"); }

ComSession::ComSession(const Options& options) : Session(options) {
  chooseLanguage();
  const HMODULE library = loadBeside(kControlLibrary);
  ComPtr<IDispatch> control;
  check(factoryOf(library, CLSID_vmgrEdit)->CreateInstance(nullptr, IID_IDispatch, control.putVoid()),
        "vmGridViews.vmgrEdit");
  control_ = wrapDispatch(control.get());
  control_.putRef("Grid", grid());

  scripts_ = exported<ScriptLinkExport>(library, kScriptLinkExport)();
  const auto makeObject = [](void* session, const char* programId) noexcept -> IDispatch* {
    try {
      return exposeObject(static_cast<ComSession*>(session)->makeWorkbook(programId)).detach();
    } catch (const std::exception&) {
      return nullptr;
    }
  };
  if (options.script || !isInstalled(kSpreadsheet)) scripts_->setObjectMaker(makeObject, this);
}

ComSession::~ComSession() {
  control_ = {};
  if (texts_) CoRevokeClassObject(texts_);
}

// The control asks COM for the string service of the process; here it is found without being registered.
void ComSession::chooseLanguage() {
  const ComPtr<IClassFactory> factory = factoryOf(loadBeside(kTextsLibrary), CLSID_MlStringService);
  check(CoRegisterClassObject(CLSID_MlStringService, factory.get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                              &texts_),
        "the string service");
  if (options().language == kNoLanguage) return;
  ComPtr<IDispatch> texts;
  check(factory->CreateInstance(nullptr, IID_IDispatch, texts.putVoid()), "the string service");
  wrapDispatch(texts.get()).put("Language", options().language);
}

ObjectRef ComSession::makeWorkbook(const char* programId) {
  return wide(programId) == kSpreadsheet ? makeWorkbookApplication(*this) : ObjectRef();
}

std::string ComSession::targetPath() {
  return namedWorkbook().empty() ? freshWorkbookPath(documentsFolder()) : pathText(namedWorkbook());
}

}  // namespace vmgv
