// A preview of pages, with a toolbar of its own. It shows pages of any number: none is asked for but those
// in sight.
//
// Its events, whether the user or the code causes them:
//   generationStarted  before the pages that it is given are counted
//   pageChanged        another page, view mode or number of pages is shown
//   closeClicked       the user clicked the toolbar's close button
//   closing            the user pressed Esc; a handler that closes sets the flag
#pragma once

#include "support/forms/tool_button.h"
#include "support/pages/page_source.h"

namespace vmgv {

enum class ViewMode : int { ZoomedIn = 0, WholePage = 1, TwoPages = 2 };

class PagePreview;

// What shows the pages: one or two of them whole, or a part of one, with scroll bars. A front end scrolls by
// wheel and arrow keys where the page is larger than its place, and turns pages by the wheel where not.
class PagePane final : public ControlOf<PagePane> {
 public:
  static constexpr std::string_view kTypeName = "PagePane";
  using ControlOf::ControlOf;
  bool focusable() const noexcept override { return true; }
  Properties properties() const override;

  const std::shared_ptr<PageSource>& pages() const noexcept { return pages_; }  // null: none yet
  std::int32_t count() const noexcept { return count_; }                        // 0 without pages
  PageSize paper() const noexcept { return paper_; }
  ViewMode viewMode() const noexcept { return viewMode_; }
  std::int32_t page() const noexcept { return page_; }  // from 1; with two pages, the left one
  // The last page in sight.
  std::int32_t lastInSight() const noexcept;
  // Another number whenever pages may look other than before.
  std::uint64_t version() const noexcept { return version_; }
  // The user turns pages, by wheel or bar; one that is not there changes nothing.
  void turnTo(std::int32_t page);

 private:
  friend class PagePreview;
  PagePreview& preview() const;

  std::shared_ptr<PageSource> pages_;
  std::int32_t count_ = 0, page_ = 0;
  PageSize paper_;
  ViewMode viewMode_ = ViewMode::WholePage;
  std::uint64_t version_ = 0;
};

class PagePreview final : public PictureBox {
 public:
  PagePreview(Form& form, std::string name, Control* container, std::optional<int> index);
  ~PagePreview() override;
  std::string_view typeName() const noexcept override { return "GEXPreview"; }
  Properties properties() const override;

  // Takes the pages in place of others, from the first one on.
  void show(std::shared_ptr<PageSource> pages);
  // The pages may be more, fewer or other ones than they were.
  void reread();

  ViewMode viewMode() const noexcept { return pane_->viewMode(); }
  void setViewMode(ViewMode mode);
  std::int32_t page() const noexcept { return pane_->page(); }
  std::int32_t pageCount() const noexcept { return pane_->count(); }
  void goTo(std::int32_t page);  // one that is not there changes nothing
  void nextPage() { goTo(page() + 1); }
  void previousPage() { goTo(page() - 1); }

  // The built-in toolbar: its buttons are named after it, "GEXPreview1.toolbar.close".
  void setToolbarVisible(bool visible);
  void setToolbarFont(const Font& font);
  struct Texts {
    std::string pageSetup, print, close;                                // shown
    std::string previousPage, nextPage, zoomedIn, twoPages, wholePage;  // for assistive technology
  };
  void setTexts(const Texts& texts);

  std::function<void()> onGenerationStarted, onPageChanged, onCloseClicked;
  std::function<void(bool& handled)> onClosing;
  bool pressEscape();  // true where a handler closes

  PagePane& pane() const noexcept { return *pane_; }
  // What a grid renders its pages into: ShowPages(pages).
  const ObjectRef& object() const noexcept { return object_; }

 private:
  friend class PagePane;
  class Contract;

  bool press(Key key, int shift);
  void arrange();
  void changed();

  Toolbar* toolbar_ = nullptr;
  PagePane* pane_ = nullptr;
  ObjectRef object_;
};

}  // namespace vmgv
