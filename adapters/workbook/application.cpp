// The application object and its list of workbooks.
#include "adapters/workbook/application.h"

#include <filesystem>
#include <utility>
#include <vector>

#include "adapters/workbook/collection.h"
#include "adapters/workbook/files.h"
#include "adapters/workbook/paths.h"
#include "adapters/workbook/template_fill.h"
#include "adapters/workbook/workbook.h"

namespace vmgv::workbook {
namespace {

// What the application and its collection share.
class Session {
 public:
  explicit Session(WorkbookHost& host) : host_(host) {}
  ~Session() { quit(); }

  ObjectRef add();
  ObjectRef openFile(const std::string& path);
  std::vector<ObjectRef> open() const;  // the workbooks that are not closed
  ObjectRef active() const;             // the last of them, or nothing

  bool isVisible() const noexcept { return visible_; }
  void show();
  void quit() noexcept;

 private:
  void requireRunning() const;
  std::string workingFolder() const;
  std::string targetOf(const Book& book) const;
  static Book& bookOf(const ObjectRef& workbook) { return static_cast<Workbook&>(*workbook).book(); }

  WorkbookHost& host_;
  std::vector<ObjectRef> workbooks_;
  int added_ = 0;
  bool visible_ = false;
  bool quit_ = false;
};

void Session::requireRunning() const {
  if (quit_) throw Error(ErrorNumber::Application, "The application has quit");
}

// Where working files go: the target's folder, so that it is known early whether it can be written to.
std::string Session::workingFolder() const {
  const std::string target = host_.targetPath();
  std::error_code ignored;
  if (std::filesystem::is_directory(pathOf(target), ignored)) {
    throw Error(ErrorNumber::PathAccess, "The workbook " + target + " cannot be written: it is a folder");
  }
  return target.empty() ? textOf(std::filesystem::temp_directory_path(ignored)) : folderOf(target);
}

ObjectRef Session::add() {
  requireRunning();
  auto book = std::make_shared<Book>("Book" + std::to_string(++added_), workingFolder());
  return workbooks_.emplace_back(makeObject<Workbook>(std::move(book)));
}

ObjectRef Session::openFile(const std::string& path) {
  requireRunning();
  auto book = std::make_shared<Book>(std::make_unique<TemplateFill>(path), workingFolder());
  return workbooks_.emplace_back(makeObject<Workbook>(std::move(book)));
}

// Programs refuse macros in a file whose name does not tell of them. A template is never written over.
std::string Session::targetOf(const Book& book) const {
  std::string path = host_.targetPath();
  if (path.empty()) {
    throw Error(ErrorNumber::PathAccess,
                "The workbook " + book.name() + " cannot be written: no path is given");
  }
  if (!book.fill()) return path;
  auto target = pathOf(path);
  if (book.fill()->hasMacros()) target.replace_extension(".xlsm");
  std::error_code ignored;
  if (std::filesystem::equivalent(target, pathOf(book.fill()->book().package().path()), ignored)) {
    throw Error(ErrorNumber::PathAccess,
                "The workbook " + textOf(target) + " cannot be written: it is the template");
  }
  return textOf(target);
}

std::vector<ObjectRef> Session::open() const {
  std::vector<ObjectRef> open;
  for (const ObjectRef& workbook : workbooks_) {
    if (bookOf(workbook).isOpen()) open.push_back(workbook);
  }
  return open;
}

ObjectRef Session::active() const {
  const std::vector<ObjectRef> workbooks = open();
  return workbooks.empty() ? ObjectRef() : workbooks.back();
}

void Session::show() {
  requireRunning();
  for (const ObjectRef& workbook : open()) {
    Book& book = bookOf(workbook);
    if (book.isPublished()) continue;
    const std::string path = targetOf(book);
    const std::int64_t rows = book.publish(path);
    host_.finished(path, rows);
  }
  visible_ = true;
}

void Session::quit() noexcept {
  for (const ObjectRef& workbook : workbooks_) bookOf(workbook).close();
  workbooks_.clear();
  visible_ = false;
  quit_ = true;
}

class Workbooks final : public Exposed<Workbooks> {
 public:
  explicit Workbooks(std::shared_ptr<Session> session) : session_(std::move(session)) {}
  static const ClassTable<Workbooks>& table();
  std::unique_ptr<Enumeration> enumerate() override {
    return std::make_unique<ListEnumeration>(session_->open());
  }

 private:
  std::shared_ptr<Session> session_;
};

const ClassTable<Workbooks>& Workbooks::table() {
  static const ClassTable<Workbooks> table(
      "Workbooks",
      {
          {"Add", 0, [](Workbooks& w, Args) -> Value { return w.session_->add(); }},
          {"Open", 1, [](Workbooks& w, Args args) -> Value { return w.session_->openFile(toText(args[0])); }},
          {"Count", 0,
           [](Workbooks& w, Args) -> Value { return static_cast<std::int32_t>(w.session_->open().size()); }},
          {"Item", 1,
           [](Workbooks& w, Args args) -> Value { return itemOf(w.session_->open(), "Workbooks", args[0]); }},
      },
      "Item");
  return table;
}

class Application final : public Exposed<Application> {
 public:
  explicit Application(WorkbookHost& host) : session_(std::make_shared<Session>(host)) {}
  static const ClassTable<Application>& table();

 private:
  ObjectRef activeSheet() const;
  void setVisible(bool visible);
  Value sheets() const;

  std::shared_ptr<Session> session_;
};

const ClassTable<Application>& Application::table() {
  static const ClassTable<Application> table(
      "Application",
      {
          {"Version", 0, [](Application&, Args) -> Value { return "16.0"; }},
          {"Workbooks", 0, [](Application& a, Args) -> Value { return makeObject<Workbooks>(a.session_); }},
          {"ActiveWorkbook", 0, [](Application& a, Args) -> Value { return a.session_->active(); }},
          {"ActiveSheet", 0, [](Application& a, Args) -> Value { return a.activeSheet(); }},
          {"Sheets", 0, [](Application& a, Args) -> Value { return a.sheets(); }},
          {"Visible", 0, [](Application& a, Args) -> Value { return a.session_->isVisible(); },
           [](Application& a, Args, const Value& v) { a.setVisible(toBoolean(v)); }},
          {"Quit", 0, [](Application& a, Args) -> Value { return a.session_->quit(), Value(); }},
      });
  return table;
}

ObjectRef Application::activeSheet() const {
  const ObjectRef workbook = session_->active();
  return workbook ? static_cast<Workbook&>(*workbook).activeSheet() : ObjectRef();
}

Value Application::sheets() const {
  const ObjectRef workbook = session_->active();
  if (!workbook) throw Error(ErrorNumber::Application, "There is no open workbook");
  return static_cast<Workbook&>(*workbook).sheets();
}

void Application::setVisible(bool visible) {
  if (visible) session_->show();
}

}  // namespace
}  // namespace vmgv::workbook

namespace vmgv {

ObjectRef makeWorkbookApplication(WorkbookHost& host) { return makeObject<workbook::Application>(host); }

}  // namespace vmgv
