# Settings for people who work on zelconvert; someone who only uses the package meets none of them.

function(zel_developer_settings target)
  if(ZELCONVERT_STRICT)
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
                           # GCC 12 raises this one falsely on "text" + std::string.
                           $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>)
  endif()
  if(ZELCONVERT_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${ZELCONVERT_SANITIZE}
                                             -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${ZELCONVERT_SANITIZE})
  endif()
  if(ZELCONVERT_BUILD_FUZZERS)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(WIN32)
    target_compile_definitions(${target} PRIVATE UNICODE _UNICODE)
  endif()
endfunction()
