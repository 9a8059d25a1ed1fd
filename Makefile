# make run    install what is missing, build, start the program on the simulated instrument
# make test   install, build with AddressSanitizer and UBSan, run every test
# make tsan   build with ThreadSanitizer and run the tests of the measurement run and its windows
# make bench  build optimised and run the benchmarks
# make install / make package   install the optimised build, or make the Debian package
JOBS   ?= $(shell nproc)
CMAKE  ?= cmake
GEN    := -G Ninja

.PHONY: all run test tsan bench deps clean fuzz fuzz-check install package

all: build/build.ninja
	$(CMAKE) --build build -j $(JOBS)

deps:
	@scripts/install-deps

build/build.ninja: | deps
	$(CMAKE) -S . -B build $(GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo -DVANTREL_TESTS=OFF

run: build/build.ninja
	$(CMAKE) --build build -j $(JOBS)
	@if [ -x build/app/vantrel ]; then \
	  cd build/app && ./vantrel; \
	else \
	  cd build/app && ./vantrel-cli; \
	fi

build-test/build.ninja: | deps
	$(CMAKE) -S . -B build-test $(GEN) -DCMAKE_BUILD_TYPE=Debug -DVANTREL_SANITIZE=ON -DVANTREL_TESTS=ON

test: build-test/build.ninja
	$(CMAKE) --build build-test -j $(JOBS)
	cd build-test && ASAN_OPTIONS=detect_leaks=1:abort_on_error=1 \
	  UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
	  QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j $(JOBS)

# The programs whose tests start measurement threads, and one run of the command-line program.
# Only these are built, so ctest skips the placeholders of the other test programs.
TSAN_TESTS   := test_measure test_measure_panel test_gui_measure test_gui_main
TSAN_OPTIONS := halt_on_error=1 second_deadlock_stack=1 suppressions=$(CURDIR)/tests/tsan.supp

build-tsan/build.ninja: | deps
	$(CMAKE) -S . -B build-tsan $(GEN) -DCMAKE_BUILD_TYPE=Debug -DVANTREL_TSAN=ON -DVANTREL_TESTS=ON

tsan: build-tsan/build.ninja
	$(CMAKE) --build build-tsan -j $(JOBS) --target vantrel-cli vantrel_data $(TSAN_TESTS)
	cd build-tsan && TSAN_OPTIONS="$(TSAN_OPTIONS)" QT_QPA_PLATFORM=offscreen \
	  ctest --output-on-failure -j $(JOBS) -E '_NOT_BUILT$$'
	rm -rf build-tsan/cli-run && mkdir build-tsan/cli-run
	cd build-tsan/app && TSAN_OPTIONS="$(TSAN_OPTIONS)" \
	  ./vantrel-cli measure IVC -o:../cli-run/ivc.dat

build-bench/build.ninja: | deps
	$(CMAKE) -S . -B build-bench $(GEN) -DCMAKE_BUILD_TYPE=Release -DVANTREL_TESTS=OFF -DVANTREL_BENCH=ON

bench: build-bench/build.ninja
	$(CMAKE) --build build-bench -j $(JOBS)
	build-bench/bench/vantrel_bench

fuzz: | deps
	CC=clang CXX=clang++ $(CMAKE) -S . -B build-fuzz $(GEN) -DCMAKE_BUILD_TYPE=RelWithDebInfo \
	  -DVANTREL_TESTS=OFF -DVANTREL_GUI=OFF -DVANTREL_FUZZ=ON
	$(CMAKE) --build build-fuzz -j $(JOBS)

# A short run of every fuzz target over its kept corpus (new inputs go to build-fuzz/corpus).
FUZZ_SECONDS ?= 20
FUZZ_TARGETS := data_pair dxb thermometer settings simdaq nidaq journal cmdline
fuzz-check: fuzz
	@for t in $(FUZZ_TARGETS); do \
	  mkdir -p build-fuzz/corpus/$$t; \
	  build-fuzz/fuzz/fuzz_$$t -max_total_time=$(FUZZ_SECONDS) -rss_limit_mb=2048 -max_len=8192 \
	    -print_final_stats=1 build-fuzz/corpus/$$t fuzz/corpus/$$t > build-fuzz/fuzz_$$t.log 2>&1; \
	  status=$$?; \
	  echo "fuzz_$$t: $$(grep -o 'number_of_executed_units: [0-9]*' build-fuzz/fuzz_$$t.log)"; \
	  if [ $$status -ne 0 ]; then tail -40 build-fuzz/fuzz_$$t.log; exit 1; fi; \
	done

# Installs the optimised build under PREFIX (default /usr/local).
PREFIX ?= /usr/local
install: all
	$(CMAKE) --install build --prefix $(PREFIX)

# The Debian package, built optimised for /usr: build-pkg/vantrel_*.deb.
build-pkg/build.ninja: | deps
	$(CMAKE) -S . -B build-pkg $(GEN) -DCMAKE_BUILD_TYPE=Release -DVANTREL_TESTS=OFF \
	  -DCMAKE_INSTALL_PREFIX=/usr

package: build-pkg/build.ninja
	$(CMAKE) --build build-pkg -j $(JOBS)
	cd build-pkg && cpack
	@ls build-pkg/*.deb

clean:
	rm -rf build build-test build-tsan build-bench build-fuzz build-pkg
