# The call table of every export, generated from the public headers at build time.
add_custom_command(
  OUTPUT ${ZAMS_GEN}/hostile_calls.cpp
  COMMAND Python3::Interpreter ${PROJECT_SOURCE_DIR}/tools/gen_hostile.py
          --out ${ZAMS_GEN}/hostile_calls.cpp ${ZAMS_API_HEADERS}
  DEPENDS ${PROJECT_SOURCE_DIR}/tools/gen_hostile.py ${PROJECT_SOURCE_DIR}/tools/gen_entry.py ${ZAMS_API_HEADERS}
  COMMENT "Generating the hostile-input call table"
  VERBATIM)
target_sources(test_${dir} PRIVATE ${ZAMS_GEN}/hostile_calls.cpp)
target_include_directories(test_${dir} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}/hostile)
