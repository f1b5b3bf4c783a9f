# Debian's emscripten. Sources are compiled by the clang that it uses, with the options that it passes: that takes half
# the time, and ccache knows the compiler.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR wasm32)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_CXX_COMPILER_TARGET wasm32-unknown-emscripten)
set(CMAKE_SYSROOT /usr/share/emscripten/cache/sysroot)
set(CMAKE_AR /usr/bin/emar CACHE FILEPATH "")
set(CMAKE_RANLIB /usr/bin/emranlib CACHE FILEPATH "")
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)

set(web ${CMAKE_CURRENT_LIST_DIR})
string(JOIN " " CMAKE_CXX_FLAGS_INIT
  -D__EMSCRIPTEN__ -D_LIBCPP_ABI_VERSION=2 -fno-threadsafe-statics -Xclang -iwithsysroot/include/compat
  # Exceptions of WebAssembly itself: Node 17, Chrome 95, Firefox 100, Safari 15.2.
  -fwasm-exceptions
  # What browsers with these exceptions have, too: smaller conversions of numbers and copies of memory.
  -msign-ext -mnontrapping-fptoint -mbulk-memory
  # What the standard library lacks.
  -isystem ${web}/standard -I${web}/module)
set(CMAKE_CXX_LINK_EXECUTABLE "em++ -O2 -fwasm-exceptions <LINK_FLAGS> <OBJECTS> -o <TARGET> <LINK_LIBRARIES>")
