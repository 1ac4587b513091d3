# Headers of Qt and of the language that are read once for a set of flags instead of in every source: half of what
# a build costs. Who may see which Qt stays as each target links it; a source includes what it uses all the same,
# and the release, which is built without, fails on one that does not (the tests': attrezzi/inclusioni.py).
option(LUMIRA_PRECOMPILATI "Read the headers of Qt once for all sources (GCC, clang)" ON)
if(NOT LUMIRA_PRECOMPILATI OR NOT CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  return()
endif()

# What many sources of a kind read. Each header that few of them need costs all the others.
set(intestazioni_moduli <algorithm> <array> <functional> <memory> <optional> <utility> <vector>
    <QByteArray> <QCoreApplication> <QFileInfo> <QList> <QString> <QStringList>)
set(intestazioni_finestre ${intestazioni_moduli} <QApplication> <QPainter> <QPointer> <QVariant> <QWidget>)
set(intestazioni_prove ${intestazioni_moduli} <QDir> <QFile> <QTemporaryDir> <QTest>)
set(intestazioni_prove_finestre ${intestazioni_prove} <QApplication> <QListWidget> <QPushButton> <QTimer> <QWidget>)

# lumira_librerie_viste(LIST TARGET): adds to the list what a target links, directly or through others.
function(lumira_librerie_viste elenco bersaglio)
  set(viste ${${elenco}})
  get_target_property(librerie ${bersaglio} LINK_LIBRARIES)
  foreach(libreria IN LISTS librerie)
    if(NOT libreria IN_LIST viste)
      list(APPEND viste ${libreria})
      if(libreria MATCHES "^lumira_" AND NOT libreria STREQUAL lumira_opzioni)
        lumira_librerie_viste(viste ${libreria})
      endif()
    endif()
  endforeach()
  set(${elenco} ${viste} PARENT_SCOPE)
endfunction()

# One set of flags for all tests: without what the test library gives each folder of them its name with, and left as
# they are written, for a test runs once where it was built.
function(lumira_come_prova bersaglio)
  target_compile_options(${bersaglio} PRIVATE -UQT_TESTCASE_BUILDDIR -UQT_TESTCASE_SOURCEDIR $<$<CONFIG:Release>:-O0>)
endfunction()

# lumira_precompilati(KIND LIB ...): the read headers of a kind of source.
function(lumira_precompilati genere)
  file(WRITE ${PROJECT_BINARY_DIR}/precompilati/vuoto.cpp.nuovo "// Headers alone.\n")
  file(COPY_FILE ${PROJECT_BINARY_DIR}/precompilati/vuoto.cpp.nuovo ${PROJECT_BINARY_DIR}/precompilati/vuoto.cpp
       ONLY_IF_DIFFERENT)
  add_library(precompilati_${genere} OBJECT ${PROJECT_BINARY_DIR}/precompilati/vuoto.cpp)
  set_target_properties(precompilati_${genere} PROPERTIES AUTOMOC OFF)
  target_link_libraries(precompilati_${genere} PRIVATE lumira_opzioni ${ARGN})
  target_precompile_headers(precompilati_${genere} PRIVATE ${intestazioni_${genere}})
endfunction()

lumira_precompilati(moduli Qt6::Core)
lumira_precompilati(finestre Qt6::Widgets)
if(BUILD_TESTING)
  lumira_precompilati(prove Qt6::Test)
  lumira_precompilati(prove_finestre Qt6::Test Qt6::Widgets)
  lumira_come_prova(precompilati_prove)
  lumira_come_prova(precompilati_prove_finestre)
endif()

# lumira_precompila(TARGET): with the headers of its kind.
function(lumira_precompila bersaglio)
  set(viste "")
  lumira_librerie_viste(viste ${bersaglio})
  if(NOT Qt6::Core IN_LIST viste AND NOT Qt6::Widgets IN_LIST viste AND NOT Qt6::Test IN_LIST viste)
    return() # it has nothing of Qt to read
  endif()
  get_target_property(con_finestra ${bersaglio} WIN32_EXECUTABLE)
  if(WIN32 AND con_finestra)
    return() # of its flags there is one program alone
  endif()
  set(genere moduli)
  if(Qt6::Test IN_LIST viste)
    # The test library's headers are others where Qt's pictures are at hand without its windows.
    if(Qt6::Widgets IN_LIST viste)
      set(genere prove_finestre)
    elseif(NOT Qt6::Gui IN_LIST viste)
      set(genere prove)
    endif()
    if(NOT genere STREQUAL moduli)
      lumira_come_prova(${bersaglio})
    endif()
  elseif(Qt6::Widgets IN_LIST viste)
    set(genere finestre)
  endif()
  target_precompile_headers(${bersaglio} REUSE_FROM precompilati_${genere})
  # Nearly empty but in the libraries of the forms: to take the headers in would cost more than it has to read.
  if(NOT genere STREQUAL finestre)
    get_target_property(cartella ${bersaglio} BINARY_DIR)
    get_target_property(sorgenti ${bersaglio} SOURCE_DIR)
    set_source_files_properties(${cartella}/${bersaglio}_autogen/mocs_compilation.cpp
                                TARGET_DIRECTORY ${bersaglio} PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
  endif()
endfunction()

# Every target of the house, folder by folder.
function(lumira_precompila_cartella cartella)
  get_property(bersagli DIRECTORY ${cartella} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(bersaglio IN LISTS bersagli)
    get_target_property(tipo ${bersaglio} TYPE)
    if(tipo MATCHES "^(STATIC_LIBRARY|MODULE_LIBRARY|EXECUTABLE)$")
      lumira_precompila(${bersaglio})
    endif()
  endforeach()
  get_property(cartelle DIRECTORY ${cartella} PROPERTY SUBDIRECTORIES)
  foreach(sotto IN LISTS cartelle)
    lumira_precompila_cartella(${sotto})
  endforeach()
endfunction()
lumira_precompila_cartella(${PROJECT_SOURCE_DIR})
