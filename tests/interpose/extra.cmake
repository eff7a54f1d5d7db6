target_link_libraries(test_${dir} PRIVATE ${CMAKE_DL_LIBS})
