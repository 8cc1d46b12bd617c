// What the files of a workbook ask of the system; file_port_posix.cpp and file_port_windows.cpp answer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/automation/error.h"

namespace vmgv::workbook::port {

// Errors are the system's own numbers, 0 for none. Paths are UTF-8.
using Handle = std::intptr_t;
inline constexpr Handle kNoFile = -1;

enum class Stay : std::uint8_t {
  Named,   // a file like any other
  Passing  // it goes with its handle, however the program ends
};
// Makes a file to read and to append to; kNoFile where it cannot be made or one is there.
Handle create(const std::string& path, Stay stay, int& error);
// Opens a file to read, with its size in bytes; kNoFile where there is none, or no file of that kind.
Handle open(const std::string& path, std::uint64_t& size, int& error);
bool isTaken(int error) noexcept;  // the name was not free
int append(Handle file, std::string_view bytes) noexcept;
int read(Handle file, std::uint64_t offset, char* bytes, std::size_t size, std::size_t& count) noexcept;
int close(Handle file) noexcept;

int replace(const std::string& path, const std::string& target) noexcept;  // in one step
void remove(const std::string& path) noexcept;

unsigned long processId() noexcept;
ErrorNumber numberOf(int error) noexcept;
std::string messageOf(int error);

}  // namespace vmgv::workbook::port
