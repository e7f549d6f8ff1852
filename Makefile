BUILD ?= build
JOBS ?= 2

.PHONY: all deps configure build run test clean

all: build

deps:
	@./scripts/install-deps.sh

configure: deps
	@cmake -S . -B $(BUILD) -DCMAKE_BUILD_TYPE=Release >/dev/null

build: configure
	@cmake --build $(BUILD) -j$(JOBS)

run: build
	@$(BUILD)/bramblequay

test: build
	@cd $(BUILD) && ctest --output-on-failure -j$(JOBS)

clean:
	rm -rf $(BUILD)
