# cmake --build build/dev --target tidy: clang-tidy on every source that build/dev and build/windows have built.
add_custom_target(tidy
  COMMAND /usr/bin/python3 -B ${PROJECT_SOURCE_DIR}/attrezzi/tidy.py --tutti
  COMMENT "clang-tidy" USES_TERMINAL VERBATIM)
