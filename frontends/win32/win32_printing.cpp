#include "frontends/win32/win32_printing.h"

#include <windows.h>

#include <commdlg.h>
#include <winspool.h>

#include <algorithm>
#include <cmath>
#include <cstring>

#include "frontends/com/text.h"
#include "frontends/win32/print_job.h"
#include "frontends/win32/units.h"
#include "support/automation/error.h"

namespace vmgv {
namespace {

constexpr double kTenthsOfMillimetre = 254 / kPointsPerInch,
                 kHundredthsOfMillimetre = 2540 / kPointsPerInch;  // a point
constexpr const wchar_t* kPdfPrinter = L"Microsoft Print to PDF";

std::wstring defaultPrinter() {
  DWORD size = 0;
  GetDefaultPrinterW(nullptr, &size);
  std::wstring name(size, L'\0');
  if (size == 0 || !GetDefaultPrinterW(name.data(), &size)) {
    throw Error(ErrorNumber::Printer, "There is no printer to print on: Windows has no default printer");
  }
  name.resize(std::wcslen(name.c_str()));
  return name;
}

// What the printer has as its own settings; nothing where it does not answer.
std::vector<std::byte> settingsOf(const std::wstring& printer) {
  HANDLE handle = nullptr;
  if (!OpenPrinterW(const_cast<wchar_t*>(printer.c_str()), &handle, nullptr)) return {};
  auto* const name = const_cast<wchar_t*>(printer.c_str());
  const LONG size = DocumentPropertiesW(nullptr, handle, name, nullptr, nullptr, 0);
  std::vector<std::byte> mode(static_cast<std::size_t>(std::max(size, 0L)));
  auto* const settings = reinterpret_cast<DEVMODEW*>(mode.data());
  if (size <= 0 || DocumentPropertiesW(nullptr, handle, name, settings, nullptr, DM_OUT_BUFFER) != IDOK)
    mode.clear();
  ClosePrinter(handle);
  return mode;
}

// By the number that the driver has for such paper, where it has one.
void choosePaper(DEVMODEW& mode, const std::wstring& printer, PageSize paper) {
  constexpr LONG kSame = 10;  // tenths of a millimetre
  const auto tenths = [](double points) { return std::lround(points * kTenthsOfMillimetre); };
  const LONG width = tenths(std::min(paper.width, paper.height)),
             length = tenths(std::max(paper.width, paper.height));
  const auto ask = [&](WORD what, void* answer) {
    return DeviceCapabilitiesW(printer.c_str(), nullptr, what, static_cast<wchar_t*>(answer), nullptr);
  };
  std::vector<POINT> sizes(static_cast<std::size_t>(std::max(ask(DC_PAPERSIZE, nullptr), 0)));
  std::vector<WORD> numbers(sizes.size());
  if (sizes.empty() || ask(DC_PAPERS, nullptr) != static_cast<int>(sizes.size()) ||
      ask(DC_PAPERSIZE, sizes.data()) < 0 || ask(DC_PAPERS, numbers.data()) < 0) {
    sizes.clear();
  }
  const auto same = [&](POINT size) {
    return std::abs(size.x - width) <= kSame && std::abs(size.y - length) <= kSame;
  };
  const auto found = std::find_if(sizes.begin(), sizes.end(), same);
  mode.dmOrientation = paper.width > paper.height ? DMORIENT_LANDSCAPE : DMORIENT_PORTRAIT;
  mode.dmFields |= DM_ORIENTATION | DM_PAPERSIZE;
  if (found != sizes.end()) {
    mode.dmPaperSize = static_cast<short>(numbers[static_cast<std::size_t>(found - sizes.begin())]);
    mode.dmFields &= ~static_cast<DWORD>(DM_PAPERWIDTH | DM_PAPERLENGTH);
  } else {
    mode.dmPaperSize = DMPAPER_USER;
    mode.dmPaperWidth = static_cast<short>(std::min(width, 32767L));
    mode.dmPaperLength = static_cast<short>(std::min(length, 32767L));
    mode.dmFields |= DM_PAPERWIDTH | DM_PAPERLENGTH;
  }
}

// As it lies in front of the reader.
void readPaper(const std::wstring& printer, const DEVMODEW* mode, PageSize& paper) {
  const HDC device = CreateICW(L"WINSPOOL", printer.c_str(), nullptr, mode);
  if (!device) return;
  const auto points = [device](int length, int density) {
    return GetDeviceCaps(device, length) * kPointsPerInch / GetDeviceCaps(device, density);
  };
  const PageSize told{points(PHYSICALWIDTH, LOGPIXELSX), points(PHYSICALHEIGHT, LOGPIXELSY)};
  DeleteDC(device);
  const auto same = [](double one, double other) { return std::abs(one - other) < 1; };
  if (same(told.width, paper.width) && same(told.height, paper.height)) return;
  if (told.width > 0 && told.height > 0) paper = told;
}

// Memory as dialogs take and give it.
template <class Content>
class Handed {
 public:
  explicit Handed(std::size_t size) : handle(GlobalAlloc(GHND, size)) {
    if (!handle) throw Error(ErrorNumber::OutOfMemory);
  }
  Handed(const Handed&) = delete;
  Handed& operator=(const Handed&) = delete;
  ~Handed() { GlobalFree(handle); }
  // `read` gets the content, null where a dialog has taken it away.
  template <class Read>
  void with(Read read) const {
    auto* const content = handle ? static_cast<Content*>(GlobalLock(handle)) : nullptr;
    read(content);
    if (content) GlobalUnlock(handle);
  }

  HGLOBAL handle;
};

// The printer's name with its settings, for a dialog to begin with.
class Device {
 public:
  Device(const std::wstring& printer, const std::vector<std::byte>& mode)
      : modes(std::max(mode.size(), sizeof(DEVMODEW))),
        names(sizeof(DEVNAMES) + (printer.size() + 3) * sizeof(wchar_t)) {
    if (mode.empty()) {
      modes.with([](DEVMODEW* settings) { settings->dmSize = sizeof(DEVMODEW); });
    } else {
      modes.with([&](DEVMODEW* settings) { std::memcpy(settings, mode.data(), mode.size()); });
    }
    names.with([&](DEVNAMES* device) {
      constexpr WORD kText = sizeof(DEVNAMES) / sizeof(wchar_t);
      device->wDeviceOffset = kText;
      device->wDriverOffset = device->wOutputOffset = static_cast<WORD>(kText + printer.size() + 1);  // ""
      std::copy(printer.begin(), printer.end(), reinterpret_cast<wchar_t*>(device) + kText);
    });
  }

  std::wstring printer() const {
    std::wstring name;
    names.with([&](const DEVNAMES* device) {
      if (device) name = reinterpret_cast<const wchar_t*>(device) + device->wDeviceOffset;
    });
    return name;
  }
  std::vector<std::byte> mode() const {
    std::vector<std::byte> copy;
    modes.with([&](const DEVMODEW* settings) {
      if (!settings) return;
      const auto* const bytes = reinterpret_cast<const std::byte*>(settings);
      copy.assign(bytes, bytes + settings->dmSize + settings->dmDriverExtra);
    });
    return copy;
  }

  Handed<DEVMODEW> modes;
  Handed<DEVNAMES> names;
};

const DEVMODEW* settings(const std::vector<std::byte>& mode) noexcept {
  return mode.empty() ? nullptr : reinterpret_cast<const DEVMODEW*>(mode.data());
}

}  // namespace

Win32Printing::Choice Win32Printing::choiceFor(const PageSetup& setup, const std::string& printer) const {
  Choice choice;
  choice.printer = !printer.empty()         ? wide(printer)
                   : !last_.printer.empty() ? last_.printer
                                            : defaultPrinter();
  choice.mode = choice.printer == last_.printer ? last_.mode : settingsOf(choice.printer);
  if (!choice.mode.empty())
    choosePaper(*reinterpret_cast<DEVMODEW*>(choice.mode.data()), choice.printer, setup.paper);
  return choice;
}

bool Win32Printing::askPageSetup(PageSetup& setup) {
  const Choice before = choiceFor(setup, {});
  Device device(before.printer, before.mode);
  const auto hundredths = [](double points) { return std::lround(points * kHundredthsOfMillimetre); };
  const RECT margins{hundredths(setup.left), hundredths(setup.top), hundredths(setup.right),
                     hundredths(setup.bottom)};
  PAGESETUPDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hDevMode = device.modes.handle;
  dialog.hDevNames = device.names.handle;
  dialog.Flags = PSD_MARGINS | PSD_INHUNDREDTHSOFMILLIMETERS;
  dialog.rtMargin = margins;
  const bool taken = desktop_.showBox({.kind = Box::Kind::PageSetup}, [&](HWND owner) {
    dialog.hwndOwner = owner;
    return PageSetupDlgW(&dialog) != FALSE;
  });
  device.modes.handle = dialog.hDevMode;
  device.names.handle = dialog.hDevNames;
  if (!taken) return false;
  last_ = {device.printer(), device.mode()};
  readPaper(last_.printer, settings(last_.mode), setup.paper);
  const auto take = [](double& margin, LONG told, LONG known) {
    if (told != known) margin = told / kHundredthsOfMillimetre;
  };
  take(setup.left, dialog.rtMargin.left, margins.left);
  take(setup.top, dialog.rtMargin.top, margins.top);
  take(setup.right, dialog.rtMargin.right, margins.right);
  take(setup.bottom, dialog.rtMargin.bottom, margins.bottom);
  return true;
}

std::optional<PrintOrder> Win32Printing::askPrint(PageSetup& setup, std::int32_t pages) {
  const Choice before = choiceFor(setup, {});
  Device device(before.printer, before.mode);
  const auto most = static_cast<WORD>(std::clamp(pages, 1, 0xFFFF));
  PRINTDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hDevMode = device.modes.handle;
  dialog.hDevNames = device.names.handle;
  dialog.Flags = PD_NOSELECTION | PD_HIDEPRINTTOFILE | PD_USEDEVMODECOPIESANDCOLLATE;
  dialog.nFromPage = dialog.nMinPage = 1;
  dialog.nToPage = dialog.nMaxPage = most;
  const bool taken = desktop_.showBox({.kind = Box::Kind::Print}, [&](HWND owner) {
    dialog.hwndOwner = owner;
    return PrintDlgW(&dialog) != FALSE;
  });
  device.modes.handle = dialog.hDevMode;
  device.names.handle = dialog.hDevNames;
  if (!taken) return {};
  last_ = {device.printer(), device.mode()};
  readPaper(last_.printer, settings(last_.mode), setup.paper);
  PrintOrder order;
  order.printer = narrow(last_.printer);
  if (dialog.Flags & PD_PAGENUMS) {
    order.firstPage = dialog.nFromPage;
    order.lastPage = dialog.nToPage;
  }
  return order;
}

std::unique_ptr<PrintJob> Win32Printing::start(const PageSetup& setup, const PrintOrder& order,
                                               const std::string& title) {
  constexpr std::string_view kPdf = ".pdf";
  const bool pdf = order.file.size() > kPdf.size() &&
                   order.file.compare(order.file.size() - kPdf.size(), kPdf.size(), kPdf) == 0;
  if (pdf && settingsOf(kPdfPrinter).empty()) {
    throw Error(ErrorNumber::Printer,
                "The PDF " + order.file + " cannot be written: there is no printer " + narrow(kPdfPrinter));
  }
  const Choice choice = choiceFor(setup, pdf ? narrow(kPdfPrinter) : order.printer);
  return startPrinting(choice.printer, settings(choice.mode), order.file, title, fonts_);
}

}  // namespace vmgv
