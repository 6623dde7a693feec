# What a library of the host's commands is made of.
if(WIN32)
  set(system win32)
else()
  set(system posix)
endif()

# Calls of them, from whatever language.
set(zel_call_sources Call.cpp Output.cpp Run.cpp)
list(TRANSFORM zel_call_sources PREPEND ${CMAKE_CURRENT_LIST_DIR}/)
list(APPEND zel_call_sources ${PROJECT_SOURCE_DIR}/cli/platform/${system}/Host.cpp)

# Every command of the host but what needs a command line, a terminal or workers. Of the rest the
# linker takes what kCommands of Call.cpp leads to.
file(GLOB zel_command_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/cli/*.cpp)
list(FILTER zel_command_sources EXCLUDE REGEX
     "/(Batch[A-Za-z]*|Command(Line|Table)|Completions|GenerateCommand|Host|ManPage|NearMisses|main)\\.cpp$")
