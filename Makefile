# Entry points for people and CI. Both targets install what the build needs
# (scripts/bootstrap checks before installing), configure, build and run.
PRESET ?= default
BUILD  := build/$(PRESET)
JOBS   ?= $(shell nproc)

.PHONY: run test bootstrap configure build asan-test bench clean

run: build
	scripts/tour $(BUILD)/bin/orbo

test: build
	ctest --test-dir $(BUILD) --output-on-failure -j $(JOBS)

bootstrap:
	scripts/bootstrap

configure: bootstrap
	cmake --preset $(PRESET) >/dev/null

build: configure
	cmake --build $(BUILD) -j $(JOBS)

asan-test:
	$(MAKE) test PRESET=asan

bench: bootstrap
	cmake --preset release >/dev/null
	cmake --build build/release -j $(JOBS)
	for b in json_bench broadcast_bench property_bench; do \
	  if [ -x build/release/bin/$$b ]; then build/release/bin/$$b; fi; \
	done

clean:
	rm -rf build
