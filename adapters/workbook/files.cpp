// Files with errors that name the path and the reason.
#include "adapters/workbook/files.h"

#include <utility>

#include "adapters/workbook/paths.h"
#include "support/automation/error.h"

namespace vmgv::workbook {
namespace {

// Makes a file of a name that was free in the folder; `path` receives the name.
port::Handle createIn(const std::string& folder, port::Stay stay, std::string& path, int& error) {
  static unsigned serial = 0;
  for (;;) {
    path = textOf(pathOf(folder) /
                  (".vmgv-" + std::to_string(port::processId()) + "-" + std::to_string(++serial) + ".tmp"));
    const port::Handle file = port::create(path, stay, error);
    if (file != port::kNoFile || !port::isTaken(error)) return file;
  }
}

port::Handle openSpool(const std::string& folder) {
  std::string path;
  int error = 0;
  const port::Handle file = createIn(folder, port::Stay::Passing, path, error);
  if (file == port::kNoFile) throwFileError("No file can be made in the folder " + folder, error);
  return file;
}

}  // namespace

void throwFileError(const std::string& what, int error) {
  throw Error(port::numberOf(error), what + ": " + port::messageOf(error));
}

std::string folderOf(const std::string& path) {
  const std::string folder = textOf(pathOf(path).parent_path());
  return folder.empty() ? "." : folder;
}

File::File(File&& other) noexcept : handle_(std::exchange(other.handle_, port::kNoFile)) {}

File::~File() { close(); }

int File::close() noexcept {
  const port::Handle handle = std::exchange(handle_, port::kNoFile);
  return handle == port::kNoFile ? 0 : port::close(handle);
}

InputFile::InputFile(const std::string& path) : path_(path) {
  int error = 0;
  file_ = File(port::open(path, size_, error));
  if (!file_.isOpen()) throwFileError("The file " + path + " cannot be read", error);
}

std::string InputFile::read(std::uint64_t offset, std::size_t size) const {
  std::string bytes(size, '\0');
  std::size_t done = 0;
  while (done < size) {
    std::size_t count = 0;
    if (const int error =
            port::read(file_.handle(), offset + done, bytes.data() + done, size - done, count)) {
      throwFileError("The file " + path_ + " cannot be read", error);
    }
    if (count == 0) break;
    done += count;
  }
  bytes.resize(done);
  return bytes;
}

SpoolFile::SpoolFile(const std::string& folder) : folder_(folder), file_(openSpool(folder)) {}

void SpoolFile::append(std::string_view bytes) {
  if (const int error = file_.append(bytes)) {
    throwFileError("The workbook cannot be written into the folder " + folder_, error);
  }
}

std::size_t SpoolFile::read(std::uint64_t offset, char* bytes, std::size_t size) const {
  std::size_t count = 0;
  if (const int error = port::read(file_.handle(), offset, bytes, size, count)) {
    throwFileError("The workbook's working file in the folder " + folder_, error);
  }
  return count;
}

ReplacementFile::ReplacementFile(const std::string& target) : target_(target) {
  int error = 0;
  file_ = File(createIn(folderOf(target), port::Stay::Named, path_, error));
  if (!file_.isOpen()) fail(error);
}

ReplacementFile::~ReplacementFile() {
  if (path_.empty()) return;
  file_.close();  // an open file stays where it is on some systems
  port::remove(path_);
}

void ReplacementFile::append(std::string_view bytes) {
  if (const int error = file_.append(bytes)) fail(error);
}

void ReplacementFile::fail(int error) const {
  throwFileError("The workbook " + target_ + " cannot be written", error);
}

void ReplacementFile::commit() {
  // Some file systems tell only now that they had no room.
  if (const int error = file_.close()) fail(error);
  if (const int error = port::replace(path_, target_)) fail(error);
  path_.clear();
}

}  // namespace vmgv::workbook
