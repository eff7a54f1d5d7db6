# FFTW serves as the large-order oracle on x86-64 only.
if(ZAMS_ARCH STREQUAL "x86_64")
  target_link_libraries(test_${dir} PRIVATE fftw3 fftw3f)
  target_compile_definitions(test_${dir} PRIVATE ZAMS_TEST_FFTW=1)
endif()
