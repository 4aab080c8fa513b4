# Compiler settings of all targets, and kolvane_folder(): one library a folder of src/.

add_library(kolvane_options INTERFACE)
target_compile_options(kolvane_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
target_include_directories(kolvane_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Wrong reports from g++ 12's own library headers at -O2.
  target_compile_options(kolvane_options INTERFACE -Wno-restrict -Wno-dangling-pointer -Wno-maybe-uninitialized)
endif()
if(KOLVANE_SANITIZE)
  target_compile_options(kolvane_options INTERFACE -fsanitize=${KOLVANE_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(kolvane_options INTERFACE -fsanitize=${KOLVANE_SANITIZE})
endif()
if(KOLVANE_COVERAGE)
  target_compile_options(kolvane_options INTERFACE --coverage)
  target_link_options(kolvane_options INTERFACE --coverage)
endif()

# kolvane_folder(base): target kolvane_base from src/base/*.cpp. Further arguments are the folders below it, the only
# ones whose headers it may include.
function(kolvane_folder folder)
  string(REPLACE "/" "_" name "kolvane_${folder}")
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/${folder}/*.cpp)
  if(NOT sources)
    return()
  endif()
  add_library(${name} STATIC ${sources})
  target_link_libraries(${name} PUBLIC kolvane_options)
  foreach(below ${ARGN})
    string(REPLACE "/" "_" below_name "kolvane_${below}")
    if(TARGET ${below_name})
      target_link_libraries(${name} PUBLIC ${below_name})
    endif()
  endforeach()
endfunction()

# For what waits on people, files and pipes rather than on its own code, and for tests: there the optimizer costs
# minutes of each build and gains nothing that anyone would notice.
function(kolvane_quick_to_compile target)
  target_compile_options(${target} PRIVATE -O0)
endfunction()
