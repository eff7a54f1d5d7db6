# The engine under test is internal: link the library's objects directly.
target_sources(test_${dir} PRIVATE $<TARGET_OBJECTS:zams_objects>)
