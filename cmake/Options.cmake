# Compiler options of all targets. Set on an interface target, so that a library of others never gets them.

# Dev: optimised enough to run large tests, with line numbers and standard library assertions.
set(CMAKE_CXX_FLAGS_DEV "-O1 -g1 -D_GLIBCXX_ASSERTIONS")
set(CMAKE_CXX_FLAGS_RELEASE "-O3")

add_library(crownlab_options INTERFACE)
if(MSVC)
  target_compile_options(crownlab_options INTERFACE /W4 /fp:precise /utf-8)
else()
  # Same bytes on every machine: no fused operations, no fast-math. Nothing here reads floating point
  # traps or errno, which frees the vectoriser without changing a result.
  target_compile_options(crownlab_options INTERFACE
    -ffp-contract=off -fno-math-errno -fno-trapping-math
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align -Wunused
    -Wformat=2)
  if(CROWNLAB_WERROR)
    target_compile_options(crownlab_options INTERFACE -Werror)
  endif()
  if(CROWNLAB_SANITIZE)
    set(sanitize -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(crownlab_options INTERFACE ${sanitize})
    target_link_options(crownlab_options INTERFACE ${sanitize})
  endif()
  if(CROWNLAB_FUZZ)
    target_compile_options(crownlab_options INTERFACE -fsanitize=fuzzer-no-link)
  endif()
endif()
