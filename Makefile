# The two entry points of the README. Both set up the machine first.
BUILD_DIR := build
SANITIZE_DIR := build-sanitize
FUZZ_DIR := build-fuzz
JOBS := $(shell nproc)
# Seconds that `make fuzz` gives each harness.
FUZZ_SECONDS := 60

.PHONY: all setup build demo test test-sanitize fuzz clean

all: build

setup:
	@scripts/setup.sh

build: setup
	@cmake -S . -B $(BUILD_DIR) -G Ninja
	@cmake --build $(BUILD_DIR) -j $(JOBS)

demo: build
	@scripts/demo.sh $(BUILD_DIR)/src/tool/kel-trace $(BUILD_DIR)/src/view/kel-trace-view \
		$(BUILD_DIR)/demo.html

test: build
	@cd $(BUILD_DIR) && ctest --output-on-failure -j $(JOBS)
	@$(MAKE) --no-print-directory test-sanitize

# The whole suite again under AddressSanitizer (with leak checks) and UBSan; an
# optimised build without benchmarks keeps it quick.
test-sanitize: setup
	@cmake -S . -B $(SANITIZE_DIR) -G Ninja -DKEL_SANITIZE=ON -DKEL_BENCHMARKS=OFF \
		-DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O1
	@cmake --build $(SANITIZE_DIR) -j $(JOBS)
	@cd $(SANITIZE_DIR) && ctest --output-on-failure -j $(JOBS)

# Builds the libFuzzer harnesses with clang and runs each for FUZZ_SECONDS on a
# corpus seeded from the test cases and examples.
fuzz: setup
	@CXX=clang++ cmake -S . -B $(FUZZ_DIR) -G Ninja -DKEL_FUZZ=ON -DKEL_BENCHMARKS=OFF \
		-DKEL_WERROR=OFF -DCMAKE_BUILD_TYPE=Release -DCMAKE_CXX_FLAGS_RELEASE=-O1
	@cmake --build $(FUZZ_DIR) -j $(JOBS) --target source_fuzzer trace_fuzzer run_fuzzer
	@scripts/fuzz.sh $(FUZZ_DIR) $(FUZZ_SECONDS)

clean:
	@rm -rf $(BUILD_DIR) $(SANITIZE_DIR) $(FUZZ_DIR)
