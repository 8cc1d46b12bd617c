#include "hosts/player/out_folder.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>

#include "frontends/user/user.h"
#include "hosts/player/paths.h"

namespace vmgv {
namespace {

// Removes a half-written file.
class Unfinished {
 public:
  explicit Unfinished(std::filesystem::path file) : file_(std::move(file)) {}
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;
  ~Unfinished() {
    std::error_code ignored;
    if (!file_.empty()) std::filesystem::remove(file_, ignored);
  }
  const std::filesystem::path& file() const { return file_; }
  void done() { file_.clear(); }

 private:
  std::filesystem::path file_;
};

}  // namespace

std::filesystem::path OutFolder::file(const std::string& name) const {
  const std::filesystem::path relative = pathOf(name);
  const bool leadsUp = std::find(relative.begin(), relative.end(), "..") != relative.end();
  if (relative.has_root_path() || leadsUp || !relative.has_filename() || relative.filename() == ".") {
    throw CannotDo("expected a file name below the output folder, found \"" + name + "\"");
  }
  std::filesystem::path full = folder_ / relative;
  std::error_code failed;
  std::filesystem::create_directories(full.parent_path(), failed);
  if (failed) throw CannotDo("cannot create " + pathText(full.parent_path()) + ": " + failed.message());
  if (std::filesystem::is_directory(full, failed)) throw CannotDo(pathText(full) + " is a folder");
  return full;
}

void OutFolder::write(const std::string& name, const std::function<void(std::ostream&)>& content) const {
  const std::filesystem::path target = file(name);
  const auto fail = [&target](const std::string& reason) {
    return CannotDo("cannot write " + pathText(target) + ": " + reason);
  };
  Unfinished part(pathOf(pathText(target) + ".part"));
  errno = 0;
  std::ofstream stream(part.file(), std::ios::binary | std::ios::trunc);
  if (!stream) throw fail(std::strerror(errno));
  content(stream);
  stream.close();
  if (!stream) throw fail(errno ? std::strerror(errno) : "the disk may be full");
  std::error_code failed;
  std::filesystem::rename(part.file(), target, failed);
  if (failed) throw fail(failed.message());
  part.done();
}

}  // namespace vmgv
