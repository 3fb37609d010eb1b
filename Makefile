# Short commands for the CMake presets. Each target installs the missing Debian packages that it
# needs and builds only what it needs, so any target may be the first command on a new machine
# (scripts/fresh-machine.sh tests those that users begin with). Products: build/<preset>/bin/.
.PHONY: play test test-elsewhere gallery gallery-check dll mheg demos fuzz coverage mutants \
  endurance long-tests bench bench-check check format package package-test reproducible \
  windows-tests docs grammar-check

# Plays the demo that DEMO names, a folder of examples/ (welcome): in a window if there is a
# display, otherwise takes screenshots.
play: dll demos
	@scripts/install-packages.sh run display
	@scripts/play.sh $(or $(DEMO),welcome)

# All tests: the benchmarks' instruction counts, native tests under the sanitizers, a minute of
# fuzzing for each reader and the engine, Windows tests under Wine, scenarios, checks.
test:
	@scripts/install-packages.sh native windows run gallery test fuzz bench format tidy
	@scripts/run-tests.sh native native-asan fuzz win64 win32

# The Windows tests with the 32-bit products, and under a newer Wine. Needs root.
test-elsewhere:
	@scripts/test-elsewhere.sh

# One page with the pictures of all demos and picture tests: build/gallery/index.html. Also makes
# the pictures of docs/.
gallery: dll mheg
	@scripts/install-packages.sh run gallery
	@cmake --build --preset win64 --target clock_decoder
	@scripts/gallery.sh

# Checks that page in headless Chromium, at two widths, with pictures, layout and keyboard.
gallery-check: gallery
	@scripts/install-packages.sh browser
	@/usr/bin/python3 -B tests/scenarios/gallery_check_test.py
	@/usr/bin/python3 -B tests/scenarios/gallery_check.py build/gallery/index.html

# The 64-bit library, and the player with its decoder of I-frames.
dll:
	@scripts/install-packages.sh windows
	@cmake --preset win64 >/dev/null
	@cmake --build --preset win64 --target korvel korvel-player

# The author's tool.
mheg:
	@scripts/install-packages.sh native
	@cmake --preset native >/dev/null
	@cmake --build --preset native --target mheg

# The carousels of the demos.
demos: mheg
	@cmake --build --preset native --target examples

# The fuzz targets, for ten minutes each unless SECONDS says otherwise, and a table of the results.
fuzz:
	@scripts/install-packages.sh fuzz
	@cmake --preset fuzz -DKORVEL_FUZZ_SECONDS=$(or $(SECONDS),600) >/dev/null
	@cmake --build --preset fuzz
	@ctest --preset fuzz; status=$$?; scripts/fuzz-table.sh; exit $$status

# A million keys in the demos, eleven hours of a viewer's keys in the library, and plots of what the
# process holds: build/endurance/. STEPS and KEYS set other numbers.
endurance:
	@scripts/install-packages.sh native windows run test bench
	@cmake --preset native-asan -DKORVEL_TESTS=ON >/dev/null
	@cmake --build --preset native-asan --target unit_demos
	@cmake --preset win64 -DKORVEL_TESTS=ON >/dev/null
	@cmake --build --preset win64 --target windows_library
	@scripts/endurance.sh

# Packs the products for users: archives for Windows on x64 and x86, and the Debian package of mheg:
# build/package/.
package:
	@scripts/install-packages.sh native windows package
	@scripts/package.sh

# Builds hosts with nothing but the packages, and runs them under Wine: 64 bits, and 32 in a system
# of its own. Needs root.
package-test: package
	@scripts/install-packages.sh run package-test fresh
	@scripts/package-test.sh

# Checks that two builds in different folders give the same bytes.
reproducible:
	@scripts/install-packages.sh native windows package
	@scripts/reproducible.sh

# An archive with the Windows tests for a computer with Windows, tried under Wine:
# build/windows-tests/.
windows-tests:
	@scripts/install-packages.sh native windows run gallery test package
	@scripts/windows-tests.sh

# The reference of the library's interface: build/docs/html/index.html.
docs:
	@scripts/install-packages.sh docs
	@scripts/docs.sh

# Tokenizes the source files of demos and scenarios with the grammar for editors. npm downloads the
# tokenizer.
grammar-check:
	@scripts/install-packages.sh grammar
	@scripts/check-grammar.sh

# How much of the portable folders the native tests execute, and whether that meets the goals. Each
# line: build/coverage/html/index.html.
coverage:
	@scripts/install-packages.sh native coverage
	@cmake --preset coverage >/dev/null
	@cmake --build --preset coverage --target core_tests
	@scripts/coverage.py

# Breaks a sample of the portable sources, N places (300), and lists what no test notices. Each SEED
# (1) is another sample.
mutants:
	@scripts/install-packages.sh native mutants
	@cmake --preset mutants >/dev/null
	@cmake --build --preset mutants --target core_tests
	@scripts/mutants.py $(or $(N),300) $(SEED)

# A million cases of each reference model, and ten thousand start and close cycles: about an hour.
# CASES and CYCLES set other numbers.
long-tests:
	@scripts/install-packages.sh native windows run test
	@cmake --preset native -DKORVEL_TESTS=ON >/dev/null
	@cmake --build --preset native --target unit_reference
	@cmake --preset win64 -DKORVEL_TESTS=ON >/dev/null
	@cmake --build --preset win64 --target windows_library
	@scripts/long-tests.sh

# One table of the times of all benchmarks, with the goals that are met.
bench:
	@scripts/install-packages.sh native windows run bench
	@scripts/bench.sh

# Compares the instruction counts of the benchmarks with the stored ones. ACCEPT=1 stores them.
bench-check:
	@scripts/install-packages.sh native bench
	@cmake --preset native -DKORVEL_BENCH=ON >/dev/null
	@cmake --build --preset native --target bench_check
	@bench/check/compare.py build/native $(if $(ACCEPT),--accept)

# Checks the formatting, runs clang-tidy, and compiles every header by itself.
check:
	@scripts/install-packages.sh native windows format tidy
	@scripts/check-format.sh
	@for preset in native-asan win64; do \
	  cmake --preset $$preset >/dev/null && \
	  cmake --build --preset $$preset --target all_verify_interface_header_sets && \
	  scripts/check-tidy.sh build/$$preset || exit 1; \
	done

format:
	@scripts/install-packages.sh format
	@scripts/check-format.sh --fix
