BUILD ?= build
JOBS ?= 2

.PHONY: all deps configure build run test clean

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

test: build
	@cd $(BUILD) && ctest --output-on-failure -j$(JOBS) -LE crash

clean:
	rm -rf $(BUILD)
