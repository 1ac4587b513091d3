# What every target is compiled with.
add_library(lumira_opzioni INTERFACE)
target_include_directories(lumira_opzioni INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_definitions(lumira_opzioni INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII
                           QT_NO_FOREACH QT_NO_KEYWORDS)
target_compile_options(lumira_opzioni INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
                       -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual)
if(LUMIRA_AVVISI_ERRORI)
  target_compile_options(lumira_opzioni INTERFACE -Werror)
endif()
if(LUMIRA_SANITIZZATORI)
  target_compile_definitions(lumira_opzioni INTERFACE LUMIRA_SANITIZZATORI) # each compiler has its own word for it
  target_compile_options(lumira_opzioni INTERFACE -fsanitize=address,undefined
                         -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(lumira_opzioni INTERFACE -fsanitize=address,undefined)
  # A hundred test programs of tens of megabytes each: lld takes a third of the usual linker's time.
  find_program(LUMIRA_LLD ld.lld)
  if(LUMIRA_LLD AND NOT WIN32)
    target_link_options(lumira_opzioni INTERFACE -fuse-ld=lld)
  endif()
endif()

# lumira_libreria(NAME SOURCES file ... [LINK lib ...]): one library of the house.
function(lumira_libreria nome)
  cmake_parse_arguments(A "" "" "SOURCES;LINK" ${ARGN})
  add_library(${nome} STATIC ${A_SOURCES})
  target_link_libraries(${nome} PUBLIC lumira_opzioni ${A_LINK})
endfunction()
