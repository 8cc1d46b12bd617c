// The Windows list of a grid under a user's mouse and keys.
#include "tests/win32/resources.h"
#include "tests/win32grid/fixture.h"

namespace vmgv {
namespace {

TEST_F(ListGridTest, MouseSelectsAndOpensGroups) {
  click(rows(), inRow(2, 50));
  click(rows(), inRow(4, 50), kShift);
  click(rows(), inRow(3, 50), kControl);
  EXPECT_EQ(engine->selection(), (std::vector<std::int32_t>{2, 4}));
  drag(rows(), inRow(5, 50), inRow(7, 50));
  EXPECT_EQ(engine->selection(), (std::vector<std::int32_t>{5, 6, 7}));
  engine->setMultiSelect(false);
  click(rows(), inRow(2, 50), kShift);
  EXPECT_EQ(engine->selection(), (std::vector<std::int32_t>{2}));

  engine->addGroup({1, 1});
  engine->addGroup({2, 1});
  ASSERT_EQ(engine->rowCount(), 46);
  click(rows(), inRow(1, px(8)));
  EXPECT_EQ(engine->rowCount(), 24) << "the mark of the outer group";
  click(rows(), inRow(3, px(8)));
  EXPECT_EQ(engine->rowCount(), 24) << "an inner group's mark stands further right";
  click(rows(), inRow(3, px(8 + 18)));
  EXPECT_EQ(engine->rowCount(), 14);
  gestures::doubleClick(rows(), inRow(1, 200));
  EXPECT_EQ(engine->rowCount(), 36);
}

TEST_F(ListGridTest, RowsAreAsHighAsTheyNeedAndScrollToTheLast) {
  const int line = height(1);
  engine->setPreviewColumn(4);
  engine->changeSettings([](GridSettings& settings) {
    settings.previewRowLines = 3;
    settings.groupFooterStyle = kTotalsGroupFooter;
  });
  EXPECT_GE(height(1), 3 * line / 2);
  engine->addGroup({1, 1});
  EXPECT_EQ(height(1), line) << "a header";
  EXPECT_GT(height(2), line);
  press(VK_END, kControl);
  EXPECT_EQ(height(44), line) << "the last footer";
  EXPECT_EQ(rowRect(1).bottom, 0) << "out of sight";
  EXPECT_LE(rowRect(44).bottom, list.rows().client().bottom);
  press(VK_PRIOR);
  EXPECT_GT(list.rows().currentRow(), 30);
  engine->refreshGroups(true);
  EXPECT_EQ(rowRect(1).top, 0) << "what is left has room";
  EXPECT_EQ(list.rows().currentRow(), 2);
}

TEST_F(ListGridTest, HeadersAreClickedDraggedAndResized) {
  const struct {
    int item, shift;
    const char* keys;
  } clicks[] = {{2, 0, "|3+"}, {2, 0, "|3-"}, {1, kShift, "|3-2+"}, {2, kControl, "|3+2+"}, {1, 0, "|2+"}};
  for (const auto& c : clicks) {
    click(header(), headerPoint(c.item), c.shift);
    EXPECT_EQ(keys(), c.keys);
  }
  const POINT behind{headerPoint(2).x + 10, headerPoint(2).y};
  drag(header(), headerPoint(0), behind);
  EXPECT_EQ(order(), "2314");
  EXPECT_EQ(keys(), "|2+") << "dragging is no click";

  const int width = headerWidth(1);
  const POINT edge{headerPoint(1).x + width / 2, 5};
  drag(header(), edge, {edge.x + 40, 5});
  EXPECT_NEAR(px(engine->column(3).width), width + 40, 1);
  EXPECT_NEAR(headerWidth(1), width + 40, 1);
  press('Z', kControl);
  EXPECT_EQ(engine->column(3).width, 0) << "one step, however long it was dragged";
  EXPECT_EQ(headerWidth(1), width);
  press('Z', kControl);
  EXPECT_EQ(order(), "1234");
  engine->changeSettings([](GridSettings& settings) { settings.columnAutoResize = true; });
  EXPECT_EQ(headerWidth(0) + headerWidth(1) + headerWidth(2) + headerWidth(3), list.rows().client().right);
}

TEST_F(ListGridTest, ColumnsAreDraggedIntoAndOutOfTheBox) {
  showBox();
  const int high = list.box().client().bottom;
  ASSERT_GT(high, 10);
  const auto intoBox = [&](int item, int x) { drag(header(), headerPoint(item), {x, -high / 2}); };
  intoBox(0, 300);
  EXPECT_EQ(keys(), "1+|");
  intoBox(1, 300);
  EXPECT_EQ(keys(), "1+2+|");
  intoBox(2, 2);
  EXPECT_EQ(keys(), "3+1+2+|");
  EXPECT_EQ(order(), "1234") << "the columns stay";
  drag(chips()[2], {5, 5}, {leftOf(list.box().window()) - leftOf(chips()[2]) + 2, 5});
  EXPECT_EQ(keys(), "2+3+1+|");
  drag(chips()[0], {5, 5}, {leftOf(chips()[2]) - leftOf(chips()[0]) - 8, 5});
  EXPECT_EQ(keys(), "3+2+1+|");
  click(chips()[1], {5, 5});
  EXPECT_EQ(keys(), "3+2-1+|");
  drag(chips()[0], {5, 5}, {5, high + 30});
  EXPECT_EQ(keys(), "2-1+|");
  click(header(), headerPoint(1));
  EXPECT_EQ(keys(), "2+1+|") << "the header of a grouped column turns the group round";
}

struct Press {
  int key, shift;
  const char* keys;
};

TEST_F(ListGridTest, KeysDoWhatTheMouseDoes) {
  const struct {
    Press press;
    const char* order;
    int rows;
  } presses[] = {
      {{VK_F3, 0, "|1+"}, "1234", 40},
      {{VK_F3, 0, "|1-"}, "1234", 40},
      {{VK_RIGHT, kControl | kShift, "|1-"}, "2134", 40},
      {{VK_LEFT, kControl | kShift, "|1-"}, "1234", 40},
      {{'G', kControl, "1+|1-"}, "1234", 42},
      {{'-', 0, "1+|1-"}, "1234", 22},
      {{VK_RETURN, 0, "1+|1-"}, "1234", 42},
      {{VK_LEFT, 0, "1+|1-"}, "1234", 22},
      {{VK_RIGHT, 0, "1+|1-"}, "1234", 42},
      {{'/', 0, "1+|1-"}, "1234", 2},
      {{VK_SPACE, 0, "1+|1-"}, "1234", 22},
      {{'*', 0, "1+|1-"}, "1234", 42},
      {{VK_DOWN, 0, "1+|1-"}, "1234", 42},
      {{VK_LEFT, 0, "1+|1-"}, "1234", 42},  // from the record to its header
      {{'-', 0, "1+|1-"}, "1234", 22},      // which it closes
      {{'Z', kControl, "|1-"}, "1234", 40},
      {{'Z', kControl | kShift, "1+|1-"}, "1234", 42},
      {{'G', kControl, "|1-"}, "1234", 40},
      {{VK_END, 0, "|1-"}, "1234", 40},
      {{VK_F3, kShift, "|1-4+"}, "1234", 40},
      {{'A', kControl, "|1-4+"}, "1234", 40},
  };
  for (std::size_t i = 0; i < std::size(presses); ++i) {
    const auto& [step, order, count] = presses[i];
    press(step.key, step.shift);
    EXPECT_EQ(keys(), step.keys) << i;
    EXPECT_EQ(this->order(), order) << i;
    EXPECT_EQ(engine->rowCount(), count) << i;
  }
  EXPECT_EQ(engine->selection().size(), 40U);
  const int width = headerWidth(3);
  press(VK_ADD, kControl);
  EXPECT_NEAR(headerWidth(3), width + px(10), 1);
  for (int i = 0; i < 99; ++i) press(VK_SUBTRACT, kControl);
  EXPECT_EQ(engine->column(4).width, 20);
}

TEST_F(ListGridTest, KeysWorkInTheBox) {
  showBox();
  press(VK_F6);
  EXPECT_EQ(GetFocus(), rows()) << "nothing to go to";
  for (const std::int32_t column : {1, 2, 3}) engine->addGroup({column, 1});
  press(VK_F6);
  const struct {
    Press press;
    std::size_t focus;
  } presses[] = {
      {{VK_RIGHT, 0, "1+2+3+|"}, 1}, {{VK_RIGHT, kControl, "1+3+2+|"}, 2}, {{VK_RIGHT, 0, "1+3+2+|"}, 2},
      {{VK_SPACE, 0, "1+3+2-|"}, 2}, {{VK_LEFT, kControl, "1+2-3+|"}, 1},  {{VK_RETURN, 0, "1+2+3+|"}, 1},
      {{VK_DELETE, 0, "1+3+|"}, 1},  {{VK_DELETE, 0, "1+|"}, 0},
  };
  for (const auto& [step, focus] : presses) {
    press(step.key, step.shift);
    EXPECT_EQ(keys(), step.keys);
    EXPECT_EQ(GetFocus(), chips()[focus]);
  }
  EXPECT_EQ(textOf(GetFocus()), L"City \u25B2");
  press(VK_DELETE);
  EXPECT_EQ(keys(), "|");
  EXPECT_EQ(GetFocus(), rows());
}

TEST_F(ListGridTest, AssistiveTechnologyHearsGroupsTotalsAndPreviews) {
  engine->addGroup({1, -1});
  engine->setPreviewColumn(4);
  engine->changeSettings([](GridSettings& settings) { settings.groupFooterStyle = kTotalsGroupFooter; });
  ComPtr<IAccessible> told;
  ASSERT_EQ(S_OK, AccessibleObjectFromWindow(rows(), static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible),
                                             told.putVoid()));
  const auto row = [](LONG position) {
    VARIANT child{};
    V_VT(&child) = VT_I4;
    V_I4(&child) = position;
    return child;
  };
  const auto text = [&](auto member, LONG position) {
    BString answer;
    (told.get()->*member)(row(position), answer.put());
    return narrow(answer.view());
  };
  const auto state = [&](LONG position) {
    VARIANT answer{};
    return told->get_accState(row(position), &answer) == S_OK ? V_I4(&answer) : -1;
  };
  EXPECT_EQ(text(&IAccessible::get_accName, 1), "City: Volos (20)");
  EXPECT_EQ(state(1) & (STATE_SYSTEM_EXPANDED | STATE_SYSTEM_COLLAPSED), STATE_SYSTEM_EXPANDED);
  EXPECT_EQ(text(&IAccessible::get_accDescription, 2),
            "City: Volos; Kind: lamp; Price: 1.5; Note: note 1\nsecond\nthird; note 1\nsecond\nthird");
  press(VK_DOWN);
  press(VK_RIGHT);
  EXPECT_EQ(text(&IAccessible::get_accValue, 22), "Kind: (20)");
  EXPECT_NE(state(2) & STATE_SYSTEM_FOCUSED, 0);
  EXPECT_EQ(state(99), -1) << "there is no such row";
  engine->refreshGroups(true);
  EXPECT_NE(state(1) & STATE_SYSTEM_COLLAPSED, 0);
}

TEST_F(ListGridTest, PaintsWhatTheEngineSaysAndLeavesNothing) {
  const HDC screen = GetDC(rows()), memory = CreateCompatibleDC(screen);
  const RECT room = list.rows().client();
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, room.right, room.bottom);
  SelectObject(memory, bitmap);
  const auto colourAt = [&](int position) {
    SendMessageW(rows(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT);
    return GetPixel(memory, 3, rowRect(position).top + 2);
  };
  engine->changeSettings([](GridSettings& settings) {
    settings.backColor = 0x80FFFF;
    settings.useEvenOddColor = true;
    settings.groupFooterStyle = kTotalsGroupFooter;
  });
  EXPECT_EQ(colourAt(1), COLORREF{0x80FFFF});
  EXPECT_NE(colourAt(2), COLORREF{0x80FFFF});
  EXPECT_EQ(colourAt(3), COLORREF{0x80FFFF});
  click(rows(), inRow(3, 50));
  EXPECT_EQ(colourAt(3), GetSysColor(COLOR_HIGHLIGHT));
  engine->addGroup({1, 1});
  EXPECT_EQ(colourAt(1), GetSysColor(COLOR_BTNFACE));
  EXPECT_EQ(colourAt(2), COLORREF{0x80FFFF}) << "colours alternate within a group";
  FormatCondition desks{.name = "desks", .colIndex = 2, .value1 = "desk"};
  desks.style.backColor = 0x0000C0;
  engine->addCondition(desks);
  EXPECT_EQ(colourAt(5), COLORREF{0x0000C0});
  click(rows(), inRow(5, 50));
  press(VK_F1, kShift);
  EXPECT_EQ(tip(), L"Συνθήκες της γραμμής: desks\r\nΧρώμα φόντου: desks");
  press(VK_UP);
  EXPECT_EQ(tip(), L"") << "gone with the next key";
  press(VK_F1, kShift);
  EXPECT_EQ(tip(), L"Καμία συνθήκη δεν ισχύει για τη γραμμή.");
  const int line = height(5);
  engine->changeCondition(engine->conditions().front(), [](FormatCondition& c) { c.style.fontSize = 20; });
  EXPECT_GT(height(5), line) << "no text is cut off";
  const auto upheaval = [&](int times) {
    for (int i = 0; i < times; ++i) {
      engine->changeSettings([&](GridSettings& settings) { settings.font.size = 8 + i % 5; });
      engine->setGroups({{i % 3 + 1, 1}});
      engine->setVisible(i % 4 + 1, i % 2 == 0);
      colourAt(1);
    }
  };
  upheaval(10);
  const Resources before = countResources();
  upheaval(60);
  EXPECT_EQ(countResources().held, before.held);
  DeleteDC(memory);
  DeleteObject(bitmap);
  ReleaseDC(rows(), screen);
}

}  // namespace
}  // namespace vmgv
