/* The smallest useful host, in C: serves the current folder as the broadcast and runs the engine
 * until its window is closed. It does not check the paths that content requests; tools/player shows
 * a host that does. */
#include <stdio.h>
#include <stdlib.h>

#include "korvel.h"

static uint32_t KORVEL_CALL Count(MHEG5Host* host) {
  (void)host;
  return 1; /* the object lives as long as the program, so no count is needed */
}

static uint32_t KORVEL_CALL ReadBroadcastFile(MHEG5Host* host, const char* path, void** data,
                                              uint32_t* size) {
  FILE* file = fopen(path, "rb");
  long length = 0;
  (void)host;
  if (file == NULL) return 2; /* the file is missing and will not appear later */
  fseek(file, 0, SEEK_END);
  length = ftell(file);
  rewind(file);
  *data = malloc(length > 0 ? (size_t)length : 1);
  if (*data != NULL) length = (long)fread(*data, 1, (size_t)length, file);
  fclose(file);
  if (*data == NULL) return 2;
  if (size != NULL) *size = (uint32_t)length;
  return kMHEG5FileRead;
}

static void KORVEL_CALL FreeBroadcastFile(MHEG5Host* host, void* data) {
  (void)host;
  free(data);
}

static void KORVEL_CALL IgnoreExitCallback(MHEG5Host* host, MHEG5ExitCallback callback,
                                           uintptr_t context) {
  (void)host, (void)callback, (void)context;
}

int main(void) {
  static const MHEG5HostTable table = {.AddRef = Count,
                                       .Release = Count,
                                       .ReadFile = ReadBroadcastFile,
                                       .FreeBuffer = FreeBroadcastFile,
                                       .SetExitCallback = IgnoreExitCallback};
  MHEG5Host host = {&table};
  HWND window = CreateWindowExA(0, "STATIC", "host", 0, 0, 0, 0, 0, HWND_MESSAGE, NULL, NULL, NULL);
  MSG message;

  if (RunMHEG5Window(&host, window) != 0) return 1;
  while (GetMessageA(&message, NULL, 0, 0) > 0) {
    if (message.hwnd == window && message.message == kMHEG5ClosedMessage) break;
    DispatchMessageA(&message);
  }
  return (int)MHEG5WaitForClose();
}
