// The layout pass: what fits, what lines up, what takes the room that is left.
#include <gtest/gtest.h>

#include "support/forms/window_port.h"

namespace vmgv {
namespace {

// 100 twips a character, 300 high; frames with a border of 50 and a title of 250.
class FakeWindow : public WindowPort {
 public:
  void showModal(Form&) override {}
  MessageResult messageBox(const std::string&, MessageStyle, const std::string&) override {
    return MessageResult::Ok;
  }
  std::optional<std::string> pickFile(const FileRequest&) override { return {}; }
  std::optional<Colour> pickColour(Colour) override { return {}; }
  void doEvents() override {}
  Size naturalSize(const Control& control) override {
    return {static_cast<int>(control.caption().size()) * 100, 300};
  }
  Insets insets(const Container& container) override {
    return dynamic_cast<const Frame*>(&container) ? Insets{50, 250, 50, 50} : Insets{};
  }
  Size workArea() override { return {}; }
  Size pixel() const override { return {15, 15}; }
};

constexpr int kUnit = 90;  // of an 8 point font: 6 pixels

Form& captioned(Form& form) {
  form.setFont({.size = 8});
  return form;
}

Rect onForm(const Control& control) {
  Rect rect = control.rect();
  for (const Control* at = control.container(); at; at = at->container()) {
    rect.left += at->rect().left;
    rect.top += at->rect().top;
  }
  return rect;
}

TEST(Layout, FramesOfOneWidthWithTheirContentsInside) {
  Form form("frm");
  captioned(form);
  std::vector<layout::Node> rows;
  std::vector<Frame*> frames;
  for (const char* caption : {"short", "a much longer caption than the contents need"}) {
    auto& frame = form.add<Frame>(caption);
    frame.setCaption(caption);
    auto& list = form.add<ComboBox>("list", &frame);
    auto& option = form.add<OptionButton>("option", &frame);
    option.setCaption("ascending");
    frame.content = layout::row({layout::item(list).stretch(), layout::item(option)});
    rows.push_back(layout::item(frame));
    frames.push_back(&frame);
  }
  form.content = layout::column(std::move(rows));
  FakeWindow window;
  form.layOut(window);
  EXPECT_EQ(frames[0]->rect().width, frames[1]->rect().width);
  EXPECT_EQ(frames[1]->rect().top, frames[0]->rect().bottom() + kUnit);
  EXPECT_EQ(form.size().width, frames[0]->rect().width + 4 * kUnit);
  EXPECT_EQ(form.size().height, frames[1]->rect().bottom() + 2 * kUnit);
  const Control& list = *form.controls()[1];
  const Control& option = *form.controls()[2];
  EXPECT_EQ(list.rect().left, 50 + kUnit);
  EXPECT_EQ(list.rect().top, 250 + kUnit);
  EXPECT_EQ(option.rect().left, list.rect().right() + kUnit);
  EXPECT_EQ(option.rect().right(), frames[0]->rect().width - 50 - kUnit);
}

TEST(Layout, TablesAlignColumnsAndCentreWhatIsLowerThanItsRow) {
  Form form("frm");
  captioned(form);
  const auto add = [&](const char* caption) -> Label& {
    auto& label = form.add<Label>(caption);
    label.setCaption(caption);
    return label;
  };
  Label &head = add("a long head"), &low = add("low"), &whole = add("whole"), &upper = add("1"),
        &lower = add("2");
  form.content = layout::table(
      {layout::row({layout::item(head), layout::Node()}),
       layout::row({layout::item(low), layout::column({layout::item(upper), layout::item(lower)})}),
       layout::row({layout::item(whole).filled(), layout::item(add("right"))})});
  FakeWindow window;
  form.layOut(window);
  EXPECT_EQ(low.rect().width, head.rect().width);
  EXPECT_EQ(upper.rect().left, head.rect().right() + kUnit);
  EXPECT_EQ(low.rect().top,
            upper.rect().top + 195);  // half of what a unit and a second line take, in whole pixels
  EXPECT_EQ(lower.rect().bottom() + kUnit, whole.rect().top);
  EXPECT_EQ(form.size().width, upper.rect().right() + 2 * kUnit);
  EXPECT_EQ(form.size().height, whole.rect().bottom() + 2 * kUnit);
}

TEST(Layout, ButtonsAreEqualAndAtTheRightEnd) {
  Form form("frm");
  captioned(form);
  auto& label = form.add<Label>("label");
  label.setCaption(std::string(40, 'x'));
  std::vector<Control*> buttons;
  for (const char* caption : {"OK", "Ακύρωση", "?"}) {
    auto& button = form.add<CommandButton>(caption);
    button.setCaption(caption);
    buttons.push_back(&button);
  }
  form.content = layout::column({layout::item(label), layout::buttons(buttons)});
  FakeWindow window;
  form.layOut(window);
  for (const Control* button : buttons) EXPECT_EQ(button->rect().width, 1400);
  EXPECT_EQ(buttons[2]->rect().right(), label.rect().right());
  EXPECT_EQ(buttons[1]->rect().left, buttons[0]->rect().right() + kUnit);
}

TEST(Layout, HiddenControlsKeepTheirPlaceAndNothingLeavesTheForm) {
  Form form("frm");
  captioned(form);
  auto& frame = form.add<Frame>("frame");
  auto& picture = form.add<PictureBox>("picture", &frame);
  auto& inner = form.add<CheckBox>("inner", &picture);
  auto& hidden = form.add<CheckBox>("hidden", &picture);
  auto& below = form.add<CheckBox>("below", &picture);
  for (CheckBox* box : {&inner, &hidden, &below}) box->setCaption("caption");
  hidden.setVisible(false);
  picture.content = layout::column({layout::item(inner), layout::item(hidden), layout::item(below)});
  frame.content = layout::row({layout::item(picture)});
  form.content = layout::column({layout::item(frame)});
  FakeWindow window;
  form.layOut(window);
  EXPECT_EQ(below.rect().top, 2 * (300 + kUnit));
  const Rect last = onForm(below);
  EXPECT_LE(last.right() + 2 * kUnit, form.size().width);
  EXPECT_LE(last.bottom() + 2 * kUnit, form.size().height);
}

}  // namespace
}  // namespace vmgv
