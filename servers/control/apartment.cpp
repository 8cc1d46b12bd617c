#include "servers/control/apartment.h"

#include "frontends/com/bridge.h"
#include "frontends/win32/win32_desktop.h"
#include "frontends/win32/win32_system.h"
#include "servers/control/script_link.h"
#include "servers/control/shared_strings.h"

namespace vmgv {
namespace {

class ScriptLinkTo final : public ScriptLink {
 public:
  ScriptLinkTo(Win32Desktop& desktop, Win32System& system) noexcept
      : desktop_(desktop), system_(system), user_(desktop) {}

  Form* form() noexcept override { return user_.form(); }
  const Box* box() noexcept override { return user_.box(); }
  Control* focused() noexcept override { return user_.focused(); }
  IdleHandler* setIdleHandler(IdleHandler* handler) noexcept override {
    return user_.setIdleHandler(handler);
  }
  std::optional<ActFailure> act(const UserAct& act) noexcept override { return user_.act(act); }
  void setMainWindow(HWND window) noexcept override { desktop_.setMainWindow(window); }
  void setObjectMaker(ObjectMaker maker, void* context) noexcept override {
    system_.objectFactory = [maker, context](const std::string& programId) {
      return wrapDispatch(ComPtr<IDispatch>::adopt(maker(context, programId.c_str())).get());
    };
  }

 private:
  Win32Desktop& desktop_;
  Win32System& system_;
  UserLinkTo user_;
};

struct Apartment : std::enable_shared_from_this<Apartment> {
  Apartment() { current = this; }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  ~Apartment() { current = nullptr; }

  static thread_local Apartment* current;

  Win32Desktop desktop;
  Win32System system{desktop};
  ScriptLinkTo scripts{desktop, system};
  SharedStrings strings;
  Application application{desktop, system, strings};
};

thread_local Apartment* Apartment::current = nullptr;

}  // namespace

std::shared_ptr<Application> apartmentApplication() {
  const auto apartment =
      Apartment::current ? Apartment::current->shared_from_this() : std::make_shared<Apartment>();
  return {apartment, &apartment->application};
}

}  // namespace vmgv

extern "C" __declspec(dllexport) vmgv::ScriptLink* vmgScriptLink() noexcept {
  vmgv::Apartment* const apartment = vmgv::Apartment::current;
  return apartment ? &apartment->scripts : nullptr;
}
