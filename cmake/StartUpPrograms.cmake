# What measures the start-up, for tests and benchmarks: tripcount, and one window as a plain Motif program and with Lumora.
add_executable(tripcount EXCLUDE_FROM_ALL bench/tripcount/tripcount.cpp bench/tripcount/XProxy.cpp)
target_link_libraries(tripcount PRIVATE lm_options ${lm_libraries})

add_executable(sample_motif EXCLUDE_FROM_ALL bench/startup/sample_motif.cpp bench/startup/SampleWindow.cpp)
target_link_libraries(sample_motif PRIVATE lm_options ${lm_libraries})

add_executable(sample_lumora EXCLUDE_FROM_ALL bench/startup/sample_lumora.cpp bench/startup/SampleWindow.cpp)
target_link_libraries(sample_lumora PRIVATE lm_options lumora_build)

set(lm_startup_sources base/core/StartUp.cpp base/core/Colors.cpp base/core/DropSites.cpp base/core/ResourceDefaults.cpp
    base/core/VirtualBinding.cpp base/core/VirtualKeys.cpp)
