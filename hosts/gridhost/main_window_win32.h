// The window of gridhost.exe: the grid, a button for each of the control's dialogs, and what there is to
// know.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "hosts/gridhost/com_session.h"
#include "hosts/gridhost/list_grid.h"

namespace vmgv {

class MainWindow {
 public:
  // The session has its rows, and outlives the window. Throws Error.
  explicit MainWindow(ComSession& session);
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;
  ~MainWindow();

  HWND window() const noexcept { return window_; }
  void show();
  void tell(const std::string& text);  // in the status line
  // Until the user closes the window.
  void run();

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  void makeButtons();
  void showFont();
  void arrange();
  void open(const char* method) noexcept;
  std::string rowsText() const;
  int scaled(int pixels) const noexcept;

  ComSession& session_;
  HWND window_ = nullptr, status_ = nullptr;
  HFONT font_ = nullptr;
  std::unique_ptr<ListGrid> grid_;
  std::vector<HWND> buttons_;
};

}  // namespace vmgv
