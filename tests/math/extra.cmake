# MPFR is the accuracy oracle of the elementary functions, on x86-64 only.
if(ZAMS_ARCH STREQUAL "x86_64")
  target_link_libraries(test_${dir} PRIVATE mpfr gmp)
  target_compile_definitions(test_${dir} PRIVATE ZAMS_TEST_MPFR=1)
endif()
