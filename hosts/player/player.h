// Plays a script as a user would act on the host and its dialogs. docs/SCRIPTING.md tells the language.
#pragma once

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "hosts/player/commands.h"

namespace vmgv {

// The host makes the player its front end's idle handler and calls run() when nothing is open.
//
// One routine carries out the next line, wherever the program then waits: in run() at the host, in waiting()
// inside a dialog or box, which a line of run() or of an outer waiting() has opened, and in yielding() inside
// a long operation. After the first error no line is carried out any more and all that is open is closed.
class Player final : public IdleHandler {
 public:
  // Files are written below `outFolder`; errors go to `errors` as "SCRIPT:LINE: reason".
  Player(std::filesystem::path script, std::filesystem::path outFolder, Stage stage, std::ostream& errors);

  // 0 where every line was carried out and nothing was left open, else 1.
  int run();

  bool waiting() override;
  void yielding() override;

 private:
  struct Line {
    int number;
    const Command* command;
    std::vector<Word> words;  // behind the command
  };
  // How the next line fits a long operation that is under way; found out once, for it is asked at every row.
  struct Outlook {
    bool known = false;
    Form* form = nullptr;              // null: the line waits until the operation has ended
    const Control* control = nullptr;  // must be usable
    std::optional<Watch> watch;        // must be reached
  };

  bool load();
  bool atEnd() const { return next_ == lines_.size(); }
  void playNext();
  void playLine(const Line& line);
  Outlook outlook() const;
  bool fitsNow();
  void fail(int line, const std::string& reason);
  bool closeTop();  // false where it cannot be closed

  std::filesystem::path script_;
  Actions actions_;
  std::ostream& errors_;
  std::vector<Line> lines_;
  std::size_t next_ = 0;
  Outlook outlook_;
  bool actingInYield_ = false;
  bool failed_ = false;
  const Form* askedToClose_ = nullptr;
};

}  // namespace vmgv
