#include "output/preview/frm_preview.h"

#include "support/automation/convert.h"
#include "support/errors/errors.h"
#include "support/strings/format_message.h"

namespace vmgv {
namespace {

using Picture = ToolButton::Picture;

constexpr std::string_view kHelpTopic = "gridViewsPrint";
constexpr int kScreenShare = 80;  // per cent of the screen's width and height that the window opens with

}  // namespace

frmPreview::frmPreview(Services& services) : Dialog(services, "frmPreview", kHelpTopic) {
  form_.resizable = true;
  form_.marginUnits = 0;
  smuToolbar_ = &form_.add<Toolbar>("smuToolbar");
  addTools();
  GEXPreview1_ = &form_.add<PagePreview>("GEXPreview1");
  SmartUI1_ = &form_.add<StatusBar>("SmartUI1");
  form_.initialFocus = &GEXPreview1_->pane();
  form_.onKeyDown = [this](Key key, int shift) {
    if (key != Key::F1 || shift != 0) return false;
    help();
    return true;
  };
  GEXPreview1_->onGenerationStarted = [this] { SmartUI1_->setText(text(Text::PleaseWait)); };
  GEXPreview1_->onPageChanged = [this] { showPageNumber(); };
  GEXPreview1_->onCloseClicked = [this] { hide(); };
  GEXPreview1_->onClosing = [this](bool& handled) {
    handled = true;
    hide();
  };
}

void frmPreview::addTools() {
  const auto add = [this](const char* key, Picture picture, std::function<void()> act) {
    ToolButton& button = smuToolbar_->addButton(key);
    button.picture = picture;
    button.onClick = std::move(act);
  };
  const auto zoom = [this](ViewMode mode) { return [this, mode] { GEXPreview1_->setViewMode(mode); }; };
  add("prev", Picture::Previous, [this] { GEXPreview1_->previousPage(); });
  add("next", Picture::Next, [this] { GEXPreview1_->nextPage(); });
  add("zoomin", Picture::ZoomIn, zoom(ViewMode::ZoomedIn));
  add("zoomout", Picture::TwoPages, zoom(ViewMode::TwoPages));
  add("zoom1", Picture::WholePage, zoom(ViewMode::WholePage));
  smuToolbar_->addSeparator();
  add("setup", Picture::PrintSetup, [this] { print(true); });
  add("print", Picture::Print, [this] { print(false); });
  smuToolbar_->addSeparator();
  add("help", Picture::None, [this] { help(); });
  add("exit", Picture::Close, [this] { hide(); });
}

void frmPreview::PrintPreview(const ObjectRef& control, const std::string& header, bool onlySelected) {
  reporting(services_.window, [&] {
    editor_ = control;
    place();
    load();
    const Size screen = services_.window.workArea();
    form_.resize(services_.window, {screen.width / 100 * kScreenShare, screen.height / 100 * kScreenShare});
    form_.setCaption(FormatMessage(text(Text::PrintTitle), {header.empty() ? "" : " - " + header}));
    grid_ = editor_.object("Grid");
    const std::shared_ptr<void> listening = (*grid_).listen(*this);
    writePages(header);
    grid_.call("PrintPreview", GEXPreview1_->object(), onlySelected);
    showModal();
    services_.window.doEvents();
  });
  dropReferences();
}

// The preview's place follows from which of the two toolbars there is.
void frmPreview::place() {
  smuToolbar_->setVisible(llToolbar_);
  GEXPreview1_->setToolbarVisible(!llToolbar_);
  std::vector<layout::Node> parts;
  if (llToolbar_) parts.push_back(layout::item(*smuToolbar_));
  parts.push_back(layout::item(*GEXPreview1_).stretch());
  parts.push_back(layout::item(*SmartUI1_));
  form_.content = layout::column(std::move(parts)).gap(0);
}

void frmPreview::writePages(const std::string& header) {
  const ObjectRef properties = grid_.object("PrinterProperties");
  properties.put("TranslateColors", true);
  properties.put("RepeatHeaders", true);
  properties.put("HeaderString", 1, header);
  properties.put("FooterString", 2, services_.system.mediumDate());
}

void frmPreview::setCaptions() {
  caption(form_, Text::Print);
  GEXPreview1_->setToolbarFont(form_.font());
  GEXPreview1_->setTexts({text(Text::PageSetup), text(Text::Print), text(Text::Close),
                          text(Text::PreviousPage), text(Text::NextPage), text(Text::ZoomIn),
                          text(Text::ZoomOut), text(Text::FullPage)});
  constexpr Text kTips[] = {Text::PreviousPage, Text::NextPage, Text::ZoomIn,
                            Text::ZoomOut,      Text::FullPage, Text::PrintWithDialog,
                            Text::Print,        Text::Help,     Text::Close};
  for (std::size_t i = 0; i < std::size(kTips); ++i) {
    ToolButton& button = *smuToolbar_->buttons()[i];
    if (button.picture == Picture::None) {
      caption(button, kTips[i]);
    } else {
      button.setToolTip(text(kTips[i]));
      button.setAccessibleName(text(kTips[i]));
    }
  }
}

std::string frmPreview::pageOf(const std::string& page, std::int32_t count) {
  return FormatMessage(text(Text::PageOf), {page, count});
}

void frmPreview::showPageNumber() {
  const std::int32_t page = GEXPreview1_->page(), count = GEXPreview1_->pageCount();
  std::string shown = std::to_string(page);
  if (GEXPreview1_->viewMode() == ViewMode::TwoPages && page < count)
    shown += " - " + std::to_string(page + 1);
  SmartUI1_->setText(pageOf(shown, count));
  GEXPreview1_->pane().setAccessibleName(SmartUI1_->caption());
}

void frmPreview::raised(std::string_view event, std::span<const Value> parameters) {
  if (event != "BeforePrintPage" || parameters.size() < 2) return;
  grid_.object("PrinterProperties")
      .put("FooterString", 3, pageOf(std::to_string(toLong(parameters[0])), toLong(parameters[1])));
}

// The print dialog may have chosen another paper.
void frmPreview::print(bool showDialog) {
  reporting(services_.window, [&] {
    grid_.call("PrintGrid", showDialog);
    GEXPreview1_->reread();
  });
}

void frmPreview::help() {
  skipping([this] {
    std::string topic(kHelpTopic);
    services_.help.ShowHelpTopic(topic, &form_, {});
  });
}

void frmPreview::hide() {
  form_.close();
  services_.window.doEvents();
}

}  // namespace vmgv
