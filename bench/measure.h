// What a benchmark program reports: one "name value" line a figure, in CPU seconds (user and system) or MB.
#pragma once

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>

namespace vmgv::bench {

inline double cpuSeconds() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
  };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

inline double peakMegabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

// Of the process now, the shared parts of its libraries included.
inline double currentMegabytes() {
  long pages = 0;
  if (std::FILE* memory = std::fopen("/proc/self/statm", "r")) {
    if (std::fscanf(memory, "%*s %ld", &pages) != 1) pages = 0;
    std::fclose(memory);
  }
  return static_cast<double>(pages) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

inline void report(const char* name, double value) { std::printf("%s %.4f\n", name, value); }

}  // namespace vmgv::bench
