# The target "format": clang-format over every C++ file that git knows.
find_program(CLANG_FORMAT clang-format)
if(CLANG_FORMAT)
  add_custom_target(format
    COMMAND git ls-files -z "*.h" "*.cpp" | xargs -0 ${CLANG_FORMAT} -i
    WORKING_DIRECTORY ${CMAKE_SOURCE_DIR}
    COMMENT "Formatting" VERBATIM)
endif()
