# Settings for people who work on zelconvert; someone who only uses the package meets none of them.

# The sources of each folder are compiled as one, if this is a build that only checks: that takes a
# fraction of the time. So no two files of a folder may have one name in their unnamed namespaces.
function(zel_unity target)
  if(NOT ZELCONVERT_UNITY)
    return()
  endif()
  get_target_property(sources ${target} SOURCES)
  get_target_property(base ${target} SOURCE_DIR)
  foreach(source IN LISTS sources)
    cmake_path(ABSOLUTE_PATH source BASE_DIRECTORY ${base})
    cmake_path(GET source PARENT_PATH folder)
    cmake_path(RELATIVE_PATH folder BASE_DIRECTORY ${PROJECT_SOURCE_DIR})
    string(MAKE_C_IDENTIFIER ${folder} group)
    set_source_files_properties(${source} TARGET_DIRECTORY ${target} PROPERTIES UNITY_GROUP ${group})
  endforeach()
  set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
endfunction()

# zel_precompile(target [FROM other | headers...]): what most sources of a target include is read once, when
# everything is built anew. FROM: as `other` has it, which is compiled alike. (A compiler cache does better
# without.)
function(zel_precompile target)
  if(NOT ZELCONVERT_PRECOMPILE OR ZELCONVERT_UNITY OR CMAKE_CXX_COMPILER_LAUNCHER)
    return()
  endif()
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "FROM" "")
  # GCC 12 raises these falsely on "text" + std::string, once the standard library is precompiled.
  target_compile_options(
    ${target} PRIVATE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-stringop-overflow;-Wno-array-bounds>)
  if(arg_FROM AND NOT arg_FROM STREQUAL target)
    target_precompile_headers(${target} REUSE_FROM ${arg_FROM})
  else()
    target_precompile_headers(
      ${target} PRIVATE <algorithm> <array> <cmath> <functional> <memory> <optional> <span> <string>
      <string_view> <unordered_map> <variant> <vector> ${arg_UNPARSED_ARGUMENTS})
  endif()
endfunction()

function(zel_developer_settings target)
  if(ZELCONVERT_STRICT)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
                           # GCC 12 raises this one falsely on "text" + std::string.
                           $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>)
  endif()
  if(ZELCONVERT_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${ZELCONVERT_SANITIZE}
                                             -fno-sanitize-recover=all -fno-omit-frame-pointer)
    set(ignored ${PROJECT_SOURCE_DIR}/cmake/ubsan-ignore.txt)
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:Clang>:-fsanitize-ignorelist=${ignored}>)
    target_link_options(${target} PUBLIC -fsanitize=${ZELCONVERT_SANITIZE})
    # A program in C loads a library in C++, for which the sanitizers have a part of their own.
    set_target_properties(${target} PROPERTIES LINKER_LANGUAGE CXX)
  endif()
  get_target_property(type ${target} TYPE)
  if(ZELCONVERT_BUILD_FUZZERS AND (NOT type STREQUAL EXECUTABLE OR target MATCHES "^fuzz_"))
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE)
  endif()
endfunction()
