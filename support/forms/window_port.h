// What forms ask of a platform that shows windows. Every front end answers all of it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "support/forms/form.h"

namespace vmgv {

enum class MessageStyle : int { Critical = 16, Question = 36 /* with Yes and No */, Information = 64 };
enum class MessageResult : int { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

struct FileFilter {      // of a file picker
  std::string name;      // "Excel Files (*.xls)"
  std::string patterns;  // "*.xls", several separated by ";"
};
struct FileRequest {  // what a file picker is to offer
  std::string title;  // empty: the platform's own
  std::vector<FileFilter> filters;
  std::string defaultExtension;  // without the point
};

class WindowPort {
 public:
  virtual ~WindowPort() = default;

  // Shows an opened form over whatever is on top and returns when it is no longer open. Showing a form that
  // is already shown is Error 400.
  virtual void showModal(Form& form) = 0;
  // An empty title stands for the application's.
  virtual MessageResult messageBox(const std::string& text, MessageStyle style, const std::string& title) = 0;
  // An existing file to open; nothing when the user cancels.
  virtual std::optional<std::string> pickFile(const FileRequest& request) = 0;
  // A colour, `initial` being the one so far; nothing when the user cancels.
  virtual std::optional<Colour> pickColour(Colour initial) = 0;
  // Lets pending messages in and brings the widgets up to date. Cheap enough for every row of a long loop:
  // real work happens once 50 ms have passed since the last time.
  virtual void doEvents() = 0;

  // The smallest comfortable size of a control by its kind, caption and font. Containers give only what
  // their caption needs; their border is told by `insets`.
  virtual Size naturalSize(const Control& control) = 0;
  virtual Insets insets(const Container& container) = 0;
  // What windows may cover of the screen that the user looks at.
  virtual Size workArea() = 0;
  // A screen pixel, in twips.
  virtual Size pixel() const = 0;
};

}  // namespace vmgv
