BUILD ?= build
SANITIZE_BUILD ?= build-asan
FUZZ_BUILD ?= build-fuzz
JOBS ?= 2
FUZZ_SECONDS ?= 300

# The sanitizers stop at the first finding; LeakSanitizer skips only the system libraries'
# leaks listed in the suppression file.
SANITIZER_ENV = ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
                UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
                LSAN_OPTIONS=suppressions=$(CURDIR)/scripts/lsan.supp:print_suppressions=0

.PHONY: all deps configure build run test crash-test sanitize fuzz clean

all: build

deps:
	@./scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release >/dev/null

build: configure
	@cmake --build $(BUILD) -j$(JOBS) -- --no-print-directory

# Without a display the program explains itself in one line; that is not a failed build.
run: build
	@if [ -n "$$DISPLAY$$WAYLAND_DISPLAY$$QT_QPA_PLATFORM" ]; then \
	  $(BUILD)/bramblequay; \
	else \
	  $(BUILD)/bramblequay || true; \
	fi

# Everything but the crash test, which starts the program 200 times: see crash-test.
test: build
	@cd $(BUILD) && ctest --output-on-failure -j$(JOBS) -LE crash

crash-test: build
	@cd $(BUILD) && ctest --output-on-failure -L crash

# The tests again, built with AddressSanitizer and UndefinedBehaviorSanitizer in a folder of
# their own (-O1: the tests run fast enough, and the build is quicker than with -O2).
sanitize: deps
	@cmake -S . -B $(SANITIZE_BUILD) -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG="-O1 -g1" \
	  -DBQ_SANITIZE=ON -DBQ_BENCH=OFF >/dev/null
	@$(SANITIZER_ENV) cmake --build $(SANITIZE_BUILD) -j$(JOBS) -- --no-print-directory
	@cd $(SANITIZE_BUILD) && $(SANITIZER_ENV) ctest --output-on-failure -j$(JOBS) -LE crash

# Each fuzz target for FUZZ_SECONDS, with clang and libFuzzer in FUZZ_BUILD.
fuzz:
	@JOBS=$(JOBS) ./scripts/fuzz.sh $(FUZZ_SECONDS) $(FUZZ_BUILD)

clean:
	rm -rf $(BUILD) $(SANITIZE_BUILD) $(FUZZ_BUILD)
