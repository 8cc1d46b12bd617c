// export_cells ROWS.csv OUT.xlsx: drives the in-process workbook through the late-bound contract, cell by
// cell, as an export does. The CSV is the benchmarks' own: 12 columns of known kinds, dates in ISO form.
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "adapters/workbook/application.h"
#include "support/automation/error.h"
#include "support/automation/value.h"

namespace {

using namespace vmgv;

constexpr int kColumns = 12;
constexpr std::string_view kKinds = "nnttttdsbtnt";  // number, text, date, time stamp, Boolean

class Host final : public WorkbookHost {
 public:
  explicit Host(std::string path) : path_(std::move(path)) {}
  std::string targetPath() override { return path_; }
  void finished(const std::string&, std::int64_t rows) override { rows_ = rows; }
  std::int64_t rows() const { return rows_; }

 private:
  std::string path_;
  std::int64_t rows_ = 0;
};

// The file's fields one after the other; pages that were read are given back, so that memory shows the
// workbook's need alone.
class Fields {
 public:
  explicit Fields(const char* path) {
    const int file = open(path, O_RDONLY);
    struct stat status {};
    if (file < 0 || fstat(file, &status) != 0 || status.st_size == 0) {
      throw Error(ErrorNumber::FileNotFound, std::string("Cannot read ") + path);
    }
    size_ = static_cast<std::size_t>(status.st_size);
    data_ = static_cast<char*>(mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file, 0));
    close(file);
  }
  bool atEnd() const { return at_ >= size_; }
  std::string_view next() {
    if (data_[at_] == '"') return quoted();
    const std::size_t begin = at_;
    while (at_ < size_ && data_[at_] != ',' && data_[at_] != '\n') ++at_;
    return {data_ + begin, at_++ - begin};
  }
  void releasePages() {
    if (at_ - released_ < kPages) return;
    madvise(data_ + released_, kPages, MADV_DONTNEED);
    released_ += kPages;
  }

 private:
  static constexpr std::size_t kPages = 16 << 20;

  std::string_view quoted() {
    text_.clear();
    do {
      const std::size_t begin = ++at_;
      at_ = static_cast<std::size_t>(static_cast<char*>(std::memchr(data_ + at_, '"', size_ - at_)) - data_);
      text_.append(data_ + begin, at_ - begin);
      if (++at_ < size_ && data_[at_] == '"') text_ += '"';
    } while (at_ < size_ && data_[at_] == '"');
    ++at_;
    return text_;
  }

  char* data_ = nullptr;
  std::size_t size_ = 0, at_ = 0, released_ = 0;
  std::string text_;
};

std::string dateText(std::string_view iso) {
  std::string text;
  text.append(iso.substr(5, 2)).append("/").append(iso.substr(8, 2)).append("/").append(iso.substr(0, 4));
  return text.append(iso.substr(10));
}

void exportRows(const char* csv, const char* target) {
  Host host(target);
  const ObjectRef application = makeWorkbookApplication(host);
  const ObjectRef sheet = application.object("Workbooks").object("Add").object("ActiveSheet");
  const Member cells("Cells"), value("Value"), numberFormat("NumberFormat");

  Fields fields(csv);
  for (std::int32_t row = 1; !fields.atEnd(); ++row) {
    for (std::int32_t column = 1; column <= kColumns; ++column) {
      const std::string_view field = fields.next();
      if (field.empty()) continue;
      const ObjectRef cell = sheet.object(cells, row, column);
      if (row == 1) {
        cell.put(value, field);
        continue;
      }
      const char kind = kKinds[static_cast<std::size_t>(column) - 1];
      if (kind == 'n') {
        double number = 0;
        std::from_chars(field.data(), field.data() + field.size(), number);
        cell.put(value, number);
      } else if (kind == 'b') {
        cell.put(value, field == "true");
      } else {
        cell.put(numberFormat, "@");
        cell.put(value, kind == 't' ? std::string(field) : dateText(field));
      }
    }
    fields.releasePages();
  }
  sheet.object("Cells").object("EntireColumn").call("AutoFit");
  application.put("Visible", true);

  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  std::printf("%lld rows, %.3f CPU s, peak %.1f MB\n", static_cast<long long>(host.rows()),
              seconds(usage.ru_utime) + seconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) / 1024);
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::fprintf(stderr, "usage: export_cells ROWS.csv OUT.xlsx\n");
    return 2;
  }
  try {
    exportRows(arguments[1], arguments[2]);
  } catch (const Error& error) {
    std::fprintf(stderr, "Error %d: %s\n", static_cast<int>(error.number()), error.description());
    return 1;
  }
  return 0;
}
