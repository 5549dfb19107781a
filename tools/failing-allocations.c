// Preloaded into a program, lets allocations fail after main has begun: the one numbered
// FAIL_AT, from 0 on, and with FAIL_ON=1 all later ones, too. Memory that is released in
// large blocks from then on can be allocated again. FAIL_COUNT names a file that receives
// how many allocations there were.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <malloc.h>
#include <stdbool.h>
#include <stdio.h>
#include <stdlib.h>

extern void* __libc_malloc(size_t);
extern void* __libc_calloc(size_t, size_t);
extern void* __libc_realloc(void*, size_t);
extern void __libc_free(void*);

enum { LARGE_BLOCK = 200000 };

static bool has_begun, fails_on, has_failed;
static long count, fail_at = -1;
static size_t released;

static bool fails(size_t size) {
  if (!has_begun) {
    return false;
  }
  const long number = __sync_fetch_and_add(&count, 1);
  if (number == fail_at) {
    has_failed = true;
    return true;
  }
  if (!has_failed || !fails_on) {
    return false;
  }
  if (released < size) {
    return true;
  }
  released -= size;
  return false;
}

static void* without_memory(void) {
  errno = ENOMEM;
  return NULL;
}

void* malloc(size_t size) {
  return fails(size) ? without_memory() : __libc_malloc(size);
}
void* calloc(size_t n, size_t size) {
  return fails(n * size) ? without_memory() : __libc_calloc(n, size);
}
void* realloc(void* block, size_t size) {
  return fails(size) ? without_memory() : __libc_realloc(block, size);
}
void free(void* block) {
  if (has_failed && block != NULL && malloc_usable_size(block) >= LARGE_BLOCK) {
    released += malloc_usable_size(block);
  }
  __libc_free(block);
}

static void write_count(void) {
  has_begun = false;
  FILE* file = fopen(getenv("FAIL_COUNT"), "w");
  fprintf(file, "%ld\n", count);
  fclose(file);
}

typedef int Main(int, char**, char**);
static Main* program;

static int begin(int argc, char** argv, char** environment) {
  if (getenv("FAIL_AT") != NULL) {
    fail_at = atol(getenv("FAIL_AT"));
  }
  fails_on = getenv("FAIL_ON") != NULL;
  if (getenv("FAIL_COUNT") != NULL) {
    atexit(write_count);
  }
  has_begun = true;
  return program(argc, argv, environment);
}

int __libc_start_main(Main* start, int argc, char** argv, void (*init)(void), void (*fini)(void),
                      void (*rtld_fini)(void), void* stack_end) {
  int (*const next)(Main*, int, char**, void (*)(void), void (*)(void), void (*)(void), void*) =
      dlsym(RTLD_NEXT, "__libc_start_main");
  program = start;
  return next(begin, argc, argv, init, fini, rtld_fini, stack_end);
}
