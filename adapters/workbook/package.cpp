// Packages by minizip's raw entries: the parts come compressed already.
#include "adapters/workbook/package.h"

#include <minizip/zip.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace vmgv::workbook {
namespace {

// minizip's file functions. They always report success and keep the first error aside: minizip leaks an
// entry whose writing it sees fail.
Package& of(voidpf package) { return *static_cast<Package*>(package); }
voidpf openFile(voidpf package, const void*, int) { return package; }
uLong readFile(voidpf, voidpf, void*, uLong) { return 0; }
uLong writeFile(voidpf, voidpf package, const void* bytes, uLong size) {
  of(package).write({static_cast<const char*>(bytes), size});
  return size;
}
ZPOS64_T tellFile(voidpf, voidpf package) { return of(package).seek(0, SEEK_CUR); }
long seekFile(voidpf, voidpf package, ZPOS64_T offset, int origin) {
  const int whence = origin == ZLIB_FILEFUNC_SEEK_SET   ? SEEK_SET
                     : origin == ZLIB_FILEFUNC_SEEK_CUR ? SEEK_CUR
                                                        : SEEK_END;
  of(package).seek(static_cast<std::int64_t>(offset), whence);
  return 0;
}
int closeFile(voidpf, voidpf) { return 0; }  // the replacement file closes itself
int fileError(voidpf, voidpf) { return 0; }

constexpr std::uint64_t kZip64From = 0xffffffff;  // sizes that the classic fields cannot hold

}  // namespace

Package::Package(ReplacementFile& file) : file_(file) {
  zlib_filefunc64_def functions{openFile, readFile,  writeFile, tellFile,
                                seekFile, closeFile, fileError, this};
  zip_ = zipOpen2_64("", APPEND_STATUS_CREATE, nullptr, &functions);
  if (!zip_) file_.fail(ENOMEM);
}

Package::~Package() {
  if (zip_) zipClose(zip_, nullptr);  // unfinished: the file goes as well
}

void Package::write(std::string_view bytes) noexcept {
  if (error_ == 0) error_ = file_.file().write(bytes);
}

std::uint64_t Package::seek(std::int64_t offset, int whence) noexcept {
  const off_t place = lseek(file_.file().descriptor(), offset, whence);
  if (place < 0 && error_ == 0) error_ = errno;
  return place < 0 ? 0 : static_cast<std::uint64_t>(place);
}

void Package::check(int result) const {
  if (error_ != 0) file_.fail(error_);
  if (result != ZIP_OK) file_.fail(EIO);
}

void Package::add(const char* name, std::string_view text) {
  PackedStream stream(".");
  stream.text().append(text);
  stream.end(Deflater::Then::End);
  const PackedStream* const streams[] = {&stream};
  add(name, streams);
}

void Package::add(const char* name, std::span<const PackedStream* const> streams) {
  uLong crc = 0;
  std::uint64_t textSize = 0, packedSize = 0;
  for (const PackedStream* stream : streams) {
    crc = crc32_combine(crc, stream->crc(), static_cast<z_off_t>(stream->textSize()));
    textSize += stream->textSize();
    packedSize += stream->packedSize();
  }

  zip_fileinfo info{};
  info.tmz_date = {0, 0, 0, 1, 0, 1980};  // the format's first day
  const int zip64 = std::max(textSize, packedSize) >= kZip64From;
  check(zipOpenNewFileInZip2_64(zip_, name, &info, nullptr, 0, nullptr, 0, nullptr, Z_DEFLATED, 1, 1, zip64));
  for (const PackedStream* stream : streams) {
    stream->copyTo([this](std::string_view bytes) {
      check(zipWriteInFileInZip(zip_, bytes.data(), static_cast<unsigned>(bytes.size())));
    });
  }
  check(zipCloseFileInZipRaw64(zip_, textSize, crc));
}

void Package::finish() {
  void* zip = std::exchange(zip_, nullptr);
  check(zipClose(zip, nullptr));
}

}  // namespace vmgv::workbook
