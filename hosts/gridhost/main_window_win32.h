// The window of gridhost.exe: the grid, a button for each of the control's dialogs, and what there is to
// know.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "frontends/win32grid/list_grid.h"
#include "hosts/gridhost/com_session.h"

namespace vmgv {

class MainWindow final : public OwnWindow {
 public:
  // The session has its rows, and outlives the window. Throws Error.
  explicit MainWindow(ComSession& session);
  ~MainWindow() override;

  void show();
  void tell(const std::string& text);  // in the status line
  // Until the user closes the window.
  void run();

 private:
  std::optional<LRESULT> handle(UINT message, WPARAM wParam, LPARAM lParam) override;

  void makeButtons();
  void showFont();
  void arrange();
  void open(const char* method) noexcept;
  std::string rowsText() const;

  ComSession& session_;
  HWND status_ = nullptr;
  HFONT font_ = nullptr;
  std::unique_ptr<ListGrid> grid_;
  std::vector<HWND> buttons_;
};

}  // namespace vmgv
