# A floor is one static library made of one folder tree. It sees the floors that it is linked with and
# nothing else: no folder above a floor's own is on its include path.
#
# house_options(TARGET): warnings as errors, hardening, sanitizers, Qt without deprecated or implicit conversions.
function(house_options target)
    target_compile_options(${target} PRIVATE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # GCC 12 sees uninitialised and dangling objects inside coroutine frames that are neither.
        target_compile_options(${target} PRIVATE -Wno-maybe-uninitialized -Wno-dangling-pointer)
    endif()
    target_compile_definitions(${target} PRIVATE
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_FOREACH QT_DISABLE_DEPRECATED_BEFORE=0x060400)
    # What people run reads the bytes of strangers: it checks its own stack and the bounds that the compiler knows.
    # The sanitizers check more.
    target_compile_options(${target} PRIVATE
        "$<$<CONFIG:Release,RelWithDebInfo>:-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    # All symbols are bound before main() and read-only from then on; libraries that nothing calls are not loaded.
    target_link_options(${target} PUBLIC LINKER:-z,relro,-z,now LINKER:--as-needed)
    if(QUORVEL_SANITIZE)
        target_compile_options(${target} PRIVATE
            -fsanitize=${QUORVEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
        if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
            # Clang 14 puts this check's data before a function's first instruction and cannot place it again
            # when it splits a coroutine.
            target_compile_options(${target} PRIVATE -fno-sanitize=function)
        endif()
        target_link_options(${target} PUBLIC -fsanitize=${QUORVEL_SANITIZE})
    endif()
endfunction()

# house_floor(TARGET SOURCES... ) makes the library.
function(house_floor target)
    add_library(${target} STATIC ${ARGN})
    house_options(${target})
endfunction()
