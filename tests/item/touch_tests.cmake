# Touch, editing, adding and deleting.
recipe_test(NAME touch_scroll_axis_test SOURCES touch_scroll_axis_test.cpp LIBRARIES recipe_sheet_objects LABELS item)
sheet_test(NAME touch_test SOURCES touch_drag_test.cpp touch_press_test.cpp touch_select_test.cpp)

if("thread" IN_LIST RECIPE_SANITIZE)
    recipe_test(NAME tsan_qt_test SOURCES ../support/tsan_qt_test.cpp LABELS support)
endif()
sheet_test(NAME edit_test SOURCES edit_keyboard_test.cpp edit_save_test.cpp)
sheet_test(NAME edit_add_delete_test SOURCES edit_add_delete_test.cpp worker_test.cpp)
sheet_test(NAME edit_durability_test SOURCES edit_durability_test.cpp)
# Has a runtime of its own for events and notifications.
sheet_test(NAME edit_calls_back_test SOURCES edit_calls_back_test.cpp)
sheet_test(NAME stress_random_day_test SOURCES stress_random_day_test.cpp random_day.cpp)
sheet_test(NAME soak_test SOURCES soak_test.cpp random_day.cpp)
sheet_test(NAME stress_worker_test SOURCES stress_worker_test.cpp)
