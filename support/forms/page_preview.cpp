#include "support/forms/page_preview.h"

#include <algorithm>

#include "support/automation/class_table.h"
#include "support/forms/form.h"
#include "support/pages/page_objects.h"

namespace vmgv {

// What a grid sees of the preview. It outlives the preview where a grid keeps it, and is of no use then.
class PagePreview::Contract final : public Exposed<Contract> {
 public:
  explicit Contract(PagePreview& preview) : preview_(&preview) {}
  static const ClassTable<Contract>& table() {
    static const ClassTable<Contract> table("GEXPreview",
                                            {{"ShowPages", 1, [](Contract& c, Args args) -> Value {
                                                c.preview().show(pagesOf(args[0].object()));
                                                return {};
                                              }}});
    return table;
  }
  void forget() noexcept { preview_ = nullptr; }

 private:
  PagePreview& preview() const {
    if (!preview_) throw Error(ErrorNumber::ObjectNotSet);
    return *preview_;
  }
  PagePreview* preview_;
};

Control::Properties PagePane::properties() const {
  Properties all = Control::properties();
  all.emplace_back("page", page_);
  all.emplace_back("pageCount", count_);
  all.emplace_back("viewMode", static_cast<std::int32_t>(viewMode_));
  return all;
}

std::int32_t PagePane::lastInSight() const noexcept {
  return viewMode_ == ViewMode::TwoPages ? std::min(page_ + 1, count_) : page_;
}

PagePreview& PagePane::preview() const { return static_cast<PagePreview&>(*container()); }
void PagePane::turnTo(std::int32_t page) { preview().goTo(page); }

PagePreview::PagePreview(Form& form, std::string name, Control* container, std::optional<int> index)
    : PictureBox(form, std::move(name), container, index), object_(new Contract(*this)) {
  using Picture = ToolButton::Picture;
  toolbar_ = &form.add<Toolbar>(this->name() + ".toolbar", this);
  const auto button = [this](const char* key, Picture picture, std::function<void()> act) {
    ToolButton& added = toolbar_->addButton(key);
    added.picture = picture;
    added.onClick = std::move(act);
  };
  button("prev", Picture::Previous, [this] { previousPage(); });
  button("next", Picture::Next, [this] { nextPage(); });
  toolbar_->addSeparator();
  button("zoomin", Picture::ZoomIn, [this] { setViewMode(ViewMode::ZoomedIn); });
  button("zoom1", Picture::WholePage, [this] { setViewMode(ViewMode::WholePage); });
  button("zoomout", Picture::TwoPages, [this] { setViewMode(ViewMode::TwoPages); });
  toolbar_->addSeparator();
  button("setup", Picture::None, [this] {
    if (pane_->pages()) pane_->pages()->setUp();
    reread();
  });
  button("print", Picture::None, [this] {
    if (pane_->pages()) pane_->pages()->print(true);
    reread();
  });
  button("close", Picture::None, [this] {
    if (onCloseClicked) onCloseClicked();
  });
  pane_ = &form.add<PagePane>(this->name() + ".pages", this);
  onKeyDown = [this](Key key, int shift) { return press(key, shift); };
  arrange();
}

PagePreview::~PagePreview() { static_cast<Contract&>(*object_).forget(); }

Control::Properties PagePreview::properties() const {
  Properties all = PictureBox::properties();
  all.emplace_back("viewMode", static_cast<std::int32_t>(viewMode()));
  all.emplace_back("currentPage", page());
  all.emplace_back("pageCount", pageCount());
  all.emplace_back("toolbarVisible", toolbar_->visible());
  return all;
}

void PagePreview::show(std::shared_ptr<PageSource> pages) {
  if (onGenerationStarted) onGenerationStarted();
  pane_->pages_ = std::move(pages);
  pane_->page_ = 1;
  reread();
}

void PagePreview::reread() {
  if (!pane_->pages_) return;
  pane_->count_ = std::max(pane_->pages_->count(), 1);
  pane_->paper_ = pane_->pages_->paper();
  pane_->page_ = std::clamp(pane_->page_, 1, pane_->count_);
  changed();
}

void PagePreview::setViewMode(ViewMode mode) {
  if (mode == pane_->viewMode_) return;
  pane_->viewMode_ = mode;
  changed();
}

void PagePreview::goTo(std::int32_t page) {
  if (page < 1 || page > pane_->count_ || page == pane_->page_) return;
  pane_->page_ = page;
  changed();
}

void PagePreview::changed() {
  ++pane_->version_;
  pane_->changed();
  if (onPageChanged) onPageChanged();
}

void PagePreview::setToolbarVisible(bool visible) {
  toolbar_->setVisible(visible);
  arrange();
}

void PagePreview::setToolbarFont(const Font& font) {
  toolbar_->setFont(font);
  for (ToolButton* button : toolbar_->buttons()) button->setFont(font);
}

void PagePreview::setTexts(const Texts& texts) {
  const std::string* const shown[] = {nullptr, nullptr,          nullptr,      nullptr,
                                      nullptr, &texts.pageSetup, &texts.print, &texts.close};
  const std::string* const spoken[] = {&texts.previousPage, &texts.nextPage, &texts.zoomedIn,
                                       &texts.wholePage, &texts.twoPages};
  for (std::size_t i = 0; i < std::size(shown); ++i) {
    ToolButton& button = *toolbar_->buttons()[i];
    if (shown[i]) {
      button.setCaption(*shown[i]);
    } else {
      button.setToolTip(*spoken[i]);
      button.setAccessibleName(*spoken[i]);
    }
  }
}

bool PagePreview::press(Key key, int shift) {
  if (shift != 0) return false;
  switch (key) {
    case Key::Escape: return pressEscape();
    case Key::PageUp: previousPage(); return true;
    case Key::PageDown: nextPage(); return true;
    case Key::Home: goTo(1); return true;
    case Key::End: goTo(pageCount()); return true;
    default: return false;
  }
}

bool PagePreview::pressEscape() {
  bool handled = false;
  if (onClosing) onClosing(handled);
  return handled;
}

void PagePreview::arrange() {
  std::vector<layout::Node> parts;
  if (toolbar_->visible()) parts.push_back(layout::item(*toolbar_));
  parts.push_back(layout::item(*pane_).stretch());
  content = layout::column(std::move(parts)).gap(0);
}

}  // namespace vmgv
