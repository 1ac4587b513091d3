# cmake --build build/dev --target tidy: clang-tidy, with the configuration of .clang-tidy, on the sources of the
# programs. It reads what the compiler is given, so the generated headers have to be there: build first.
find_program(LUMIRA_RUN_CLANG_TIDY NAMES run-clang-tidy run-clang-tidy-14)
if(LUMIRA_RUN_CLANG_TIDY)
  add_custom_target(tidy
    COMMAND ${LUMIRA_RUN_CLANG_TIDY} -quiet -p ${PROJECT_BINARY_DIR}
            "^${PROJECT_SOURCE_DIR}/(platform|toolkit|core|dialogs|link|report|mctc|setup|app|simulatore|strumenti)/[^/]*[.]cpp$"
    COMMENT "clang-tidy" USES_TERMINAL VERBATIM)
endif()
