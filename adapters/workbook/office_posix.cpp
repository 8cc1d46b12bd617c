// LibreOffice as a process of its own.
#include <fcntl.h>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string_view>
#include <thread>

#include "adapters/workbook/office.h"
#include "adapters/workbook/paths.h"

namespace vmgv::workbook::port {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kMostTime = std::chrono::seconds(60);  // a start takes 1 to 5, 60,000 rows as long again
constexpr auto kPause = std::chrono::milliseconds(20);

// "" where it is not installed.
std::string officeProgram() {
  const char* const path = std::getenv("PATH");
  std::string places = path ? path : "";
  places += ":/usr/local/bin:/usr/bin:/usr/lib/libreoffice/program:/opt/libreoffice/program";
  for (const char* name : {"soffice", "libreoffice"}) {
    for (std::size_t begin = 0; begin < places.size();) {
      const std::size_t end = std::min(places.find(':', begin), places.size());
      std::string program = places.substr(begin, end - begin) + '/' + name;
      if (end > begin && access(program.c_str(), X_OK) == 0) return program;
      begin = end + 1;
    }
  }
  return {};
}

std::string fileAddress(const std::string& path) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string address = "file://";
  for (const char c : path) {
    if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '/' || c == '-' || c == '_' || c == '.') {
      address += c;
    } else {
      address += '%';
      address += kDigits[static_cast<unsigned char>(c) >> 4];
      address += kDigits[static_cast<unsigned char>(c) & 15];
    }
  }
  return address;
}

class Silence {  // what a process says and reads goes nowhere; it leads a group of its own
 public:
  Silence() {
    posix_spawn_file_actions_init(&files_);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      posix_spawn_file_actions_addopen(&files_, stream, "/dev/null", O_RDWR, 0);
    }
    posix_spawnattr_init(&attributes_);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP);
    posix_spawnattr_setpgroup(&attributes_, 0);
  }
  Silence(const Silence&) = delete;
  Silence& operator=(const Silence&) = delete;
  ~Silence() {
    posix_spawn_file_actions_destroy(&files_);
    posix_spawnattr_destroy(&attributes_);
  }
  const posix_spawn_file_actions_t* files() const { return &files_; }
  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawn_file_actions_t files_{};
  posix_spawnattr_t attributes_{};
};

}  // namespace

// Its exit status is 0 also where it failed, so only the file counts. Without a filter's name it takes
// whatever is damaged for text; without a profile of its own it gives the work to a window that the user has
// open.
Conversion convertOldWorkbook(const std::string& folder) {
  std::string program = officeProgram();
  if (program.empty()) return Conversion::NoProgram;
  std::array<std::string, 9> words{program,
                                   "-env:UserInstallation=" + fileAddress(folder + "/profile"),
                                   "--headless",
                                   "--norestore",
                                   "--infilter=MS Excel 97",
                                   "--convert-to",
                                   "xlsx",
                                   "--outdir",
                                   folder};
  std::string file = folder + "/old.xls";
  std::array<char*, 11> arguments{};
  std::transform(words.begin(), words.end(), arguments.begin(),
                 [](std::string& word) { return word.data(); });
  arguments[words.size()] = file.data();
  const Silence silence;
  pid_t process = 0;
  if (posix_spawn(&process, program.c_str(), silence.files(), silence.attributes(), arguments.data(),
                  environ) != 0) {
    return Conversion::NoProgram;
  }
  const auto deadline = Clock::now() + kMostTime;
  bool inTime = true;
  for (int status = 0; waitpid(process, &status, WNOHANG) == 0 && inTime; inTime = Clock::now() < deadline) {
    std::this_thread::sleep_for(kPause);
  }
  kill(-process, SIGKILL);  // it may have left others behind
  if (!inTime) {
    waitpid(process, nullptr, 0);
    return Conversion::TooLong;
  }
  std::error_code ignored;
  return std::filesystem::exists(pathOf(folder + "/old.xlsx"), ignored) ? Conversion::Done
                                                                        : Conversion::Failed;
}

}  // namespace vmgv::workbook::port
