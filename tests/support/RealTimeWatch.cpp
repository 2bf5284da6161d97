#include "tests/support/RealTimeWatch.h"

#include <dlfcn.h>
#include <pthread.h>

#include <cstddef>

namespace {

thread_local bool isWatching = false;
thread_local int count = 0;

void offend() {
    if (isWatching)
        ++count;
}

} // namespace

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)

extern "C" void __sanitizer_malloc_hook(const volatile void *, std::size_t) {
    offend();
}
extern "C" void __sanitizer_free_hook(const volatile void *) {
    offend();
}

#else

// The C library's own names for what is replaced here.
extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void __libc_free(void *);

void *malloc(std::size_t size) {
    offend();
    return __libc_malloc(size);
}
void *calloc(std::size_t number, std::size_t size) {
    offend();
    return __libc_calloc(number, size);
}
void *realloc(void *memory, std::size_t size) {
    offend();
    return __libc_realloc(memory, size);
}
void free(void *memory) {
    offend();
    __libc_free(memory);
}

int pthread_mutex_lock(pthread_mutex_t *mutex) {
    using Lock = int (*)(pthread_mutex_t *);
    static const auto original = reinterpret_cast<Lock>(dlsym(RTLD_NEXT, "pthread_mutex_lock"));
    offend();
    return original(mutex);
}
}

#endif

namespace palomet::test {

RealTimeWatch::RealTimeWatch() {
    count = 0;
    isWatching = true;
}

RealTimeWatch::~RealTimeWatch() {
    isWatching = false;
}

int RealTimeWatch::offences() {
    return count;
}

} // namespace palomet::test
