# Emscripten, as its own configuration tells where it lies.
find_program(ZEL_EM_CONFIG em-config REQUIRED)
execute_process(COMMAND ${ZEL_EM_CONFIG} EMSCRIPTEN_ROOT OUTPUT_VARIABLE EMSCRIPTEN_ROOT_PATH
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
include(${EMSCRIPTEN_ROOT_PATH}/cmake/Modules/Platform/Emscripten.cmake)
# Exceptions as the engine has them, which cost nothing where none is thrown; its vectors; and the
# functions of strings compiled along with the code that calls them, to be part of its loops. Engines make
# no function of a module part of another: so the compiler sees all of them at once, when they are linked,
set(CMAKE_CXX_FLAGS_INIT "-fwasm-exceptions -msimd128 -D_LIBCPP_DISABLE_EXTERN_TEMPLATE -flto")
# and small ones, of any folder and of the C library, go into their callers at the end.
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-fwasm-exceptions -Wl,--lto-O3 -sBINARYEN_EXTRA_PASSES=--always-inline-max-function-size=8,--flexible-inline-max-function-size=60,--inline-functions-with-loops")
