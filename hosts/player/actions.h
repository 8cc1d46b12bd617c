// What each command of a script does. Every function throws CannotDo or Error with the reason where it
// cannot.
#pragma once

#include <filesystem>
#include <span>
#include <string>

#include "hosts/player/out_folder.h"
#include "hosts/player/properties.h"
#include "hosts/player/script.h"
#include "hosts/player/stage.h"

namespace vmgv {

using Words = std::span<const Word>;  // of a line, without its command

class Actions {
 public:
  Actions(Stage stage, std::filesystem::path outFolder);

  User& user() const noexcept { return stage_.user; }
  // "dialog frmSort", "the message "..."", "a file picker" or "nothing open".
  std::string whatIsOnTop() const;

  // At the host.
  void call(Words words);
  void set(Words words);
  void grid(Words words);
  void select(Words words);
  void output(Words words);
  void layout(Words words);
  void rows(Words words);
  void print(Words words);

  // At a dialog.
  void click(Words words);
  void doubleClick(Words words);
  void choose(Words words);
  void enter(Words words);
  void press(Words words);
  void focus(Words words);
  void resize(Words words);
  void edit(Words words);
  void close(Words words);
  void form(Words words);

  // At a box.
  void answer(Words words);
  void pick(Words words);
  void colour(Words words);

  // Wherever they fit.
  void expect(Words words);  // a property, or a message
  void picture(Words words);
  void wait(Words) {}

 private:
  Form& topForm() const;
  Control& control(const Word& word) const { return findControl(topForm(), word.text); }
  ListControl& list(const Word& word) const;
  Form* question() const;  // the input box on top, or null
  void answerQuestion(Form& form, const Word& word);
  void expectMessage(const std::string& text);
  void nameWorkbook(std::filesystem::path file);

  Stage stage_;
  OutFolder out_;
  std::filesystem::path workbook_;  // that the next export leaves
};

}  // namespace vmgv
