# The two entry points of the README. Both set up the machine first.
BUILD_DIR := build
JOBS := $(shell nproc)

.PHONY: all setup build demo test clean

all: build

setup:
	@scripts/setup.sh

build: setup
	@cmake -S . -B $(BUILD_DIR) -G Ninja
	@cmake --build $(BUILD_DIR) -j $(JOBS)

demo: build
	@scripts/demo.sh $(BUILD_DIR)/src/tool/kel-trace

test: build
	@cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)

clean:
	@rm -rf $(BUILD_DIR)
