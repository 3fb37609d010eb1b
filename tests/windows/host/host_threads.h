// The fixture of tests that run the host's threads with substitutes for the engine core and the
// presentation.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "windows/host/substitutes.h"
#include "windows/support/host_window.h"
#include "windows/support/process.h"
#include "windows/support/recording_host.h"
#include "windows/support/waiting.h"

namespace korvel::test {

class HostThreads : public testing::Test {
 protected:
  HostThreads();
  ~HostThreads() override;

  // Starts the engine and waits until it has tried to start the start-up application.
  void Start();
  // Starts the engine and returns when its thread has been created.
  void StartWithoutWaiting();
  // Closes the engine and waits for its thread. Does nothing if no engine runs.
  void Close();

  // Posts to the engine window. The engine handles messages in the order of the calls.
  void Post(UINT message, WPARAM wParam = 0);
  void PostKeys(const std::vector<WPARAM>& virtualKeys);
  // Posts a restart and waits until the engine has handled it and all messages before it.
  void FinishPosted();
  // Waits until the journal has this line `count` times.
  void WaitForLine(const std::string& line, int count = 1);

  // The journal without the lines that the engine thread writes when it paints.
  [[nodiscard]] static std::vector<std::string> WorkerLines();
  // The events raised so far, as "type value".
  [[nodiscard]] static std::vector<std::string> Raised();

  RecordingHost host;
  HostWindow window;
  Substitutes& substitutes = TheSubstitutes();
  Journal& journal = TheSubstitutes().journal;
};

}  // namespace korvel::test
