/** @file
 * The public interface of korvel.dll, an MHEG-5 presentation engine for Windows, for hosts in C
 * and C++: four functions, the object through which the host serves the broadcast file system, and
 * the message that tells the host that the engine has closed. One engine runs per process.
 * docs/embedding.md shows a host step by step; tools/player is a complete one. */
#ifndef KORVEL_H
#define KORVEL_H

#include <stdint.h>
#include <windows.h>

#define KORVEL_VERSION_MAJOR 1 /**< Changes if hosts must be changed. */
#define KORVEL_VERSION_MINOR 0 /**< Changes if the interface has grown. */
#define KORVEL_VERSION_PATCH 0 /**< Changes with every other release. */

/** The version of this header and of the library that it comes with, as in the version block of
 * korvel.dll. */
#define KORVEL_VERSION "1.0.0"

/** The calling convention of all functions, the host's included. */
#define KORVEL_CALL __stdcall

#ifdef __cplusplus
extern "C" {
#endif

enum {
  /** The only code that the exit callback accepts: the engine closes. */
  kMHEG5ExitCode = 1000,

  /** Posted to the host window, both parameters 0, once the engine has closed. Nothing else is
   * ever sent to that window. From here on, also inside the handler of this message,
   * RunMHEG5Window accepts a new start. */
  kMHEG5ClosedMessage = 8024
};

/* The results of MHEG5HostTable.ReadFile. Any other value means that the file cannot be read. */
enum {
  /** The host has stored a buffer and its size. */
  kMHEG5FileRead = 0,

  /** The engine calls again every 500 ms, until the result changes or the engine closes. */
  kMHEG5FileNotYetAvailable = 1
};

/** Lets the host close the engine without importing the library's functions. kMHEG5ExitCode has the
 * effect of ExitMHEG5, any other code has none. May be called on any thread. */
typedef void(KORVEL_CALL* MHEG5ExitCallback)(uint32_t code);

struct MHEG5HostTable;

/** The host object: owned by the host, counted by AddRef and Release. Its first word points to its
 * function table, so a C++ object whose virtual functions are in this order works too. */
typedef struct MHEG5Host {
  const struct MHEG5HostTable* table; /**< Must not change while the engine holds the object. */
} MHEG5Host;

/** The functions of a host object, 12 slots in this order. The engine calls ReadFile and FreeBuffer
 * on its own worker thread, one call at a time and never on the thread that called RunMHEG5Window;
 * AddRef and the first SetExitCallback on the thread that called RunMHEG5Window; Release and the
 * last SetExitCallback on the worker, or on another thread of the engine if it has no worker. No
 * function may wait for the engine to close, or for a thread that waits for that. SendMessage to a
 * thread in MHEG5WaitForClose is the exception: that wait answers it, but neither a posted message
 * nor a COM call.
 *
 * Slots 0, 3 to 5 and 8 to 10 belong to the host. They are never called and may be null. */
typedef struct MHEG5HostTable {
  /** Slot 0: never called. */
  int32_t(KORVEL_CALL* QueryInterface)(MHEG5Host* host, const void* interfaceId, void** object);

  /** Slot 1: called once by a successful RunMHEG5Window. Returns the new count. */
  uint32_t(KORVEL_CALL* AddRef)(MHEG5Host* host);

  /** Slot 2: called once as the engine closes, before kMHEG5ClosedMessage. The engine does not
   * touch the object afterwards. Returns the new count. */
  uint32_t(KORVEL_CALL* Release)(MHEG5Host* host);

  void(KORVEL_CALL* HostOwn3)(MHEG5Host* host); /**< Slot 3: never called. */
  void(KORVEL_CALL* HostOwn4)(MHEG5Host* host); /**< Slot 4: never called. */
  void(KORVEL_CALL* HostOwn5)(MHEG5Host* host); /**< Slot 5: never called. */

  /** Slot 6: reads a file of the broadcast file system. The path is relative to its root, 8-bit and
   * zero-terminated, and separates folders with '\\' or '/'. On success the host stores the address
   * and the size in bytes of a buffer that it owns, and keeps the buffer until FreeBuffer. `size`
   * is null if the engine only checks that the file exists; FreeBuffer then follows a success too.
   * FreeBuffer is not called after any other result. Returns kMHEG5FileRead,
   * kMHEG5FileNotYetAvailable, or any other value if the file cannot be read. */
  uint32_t(KORVEL_CALL* ReadFile)(MHEG5Host* host, const char* path, void** data, uint32_t* size);

  /** Slot 7: releases a buffer of ReadFile, exactly once for each success. */
  void(KORVEL_CALL* FreeBuffer)(MHEG5Host* host, void* data);

  void(KORVEL_CALL* HostOwn8)(MHEG5Host* host);  /**< Slot 8: never called. */
  void(KORVEL_CALL* HostOwn9)(MHEG5Host* host);  /**< Slot 9: never called. */
  void(KORVEL_CALL* HostOwn10)(MHEG5Host* host); /**< Slot 10: never called. */

  /** Slot 11: receives the exit callback and the context 0 at the start, and null and 0 as the
   * engine closes. The host must not use the callback after that. */
  void(KORVEL_CALL* SetExitCallback)(MHEG5Host* host, MHEG5ExitCallback callback,
                                     uintptr_t context);
} MHEG5HostTable;

/* The functions may be called on any thread, but not from a DllMain: a thread that is starting or
 * ending needs the lock that DllMain holds. */

/** Starts the engine, which opens its window, looks for the start-up application and runs on
 * threads of its own. Returns 0 without waiting for any of that. Returns 1, without calling or
 * keeping the host object, if `host` or its table is null, if a function that the engine calls is
 * missing, if an engine exists or is still closing, or if the thread cannot be created.
 * `hostWindow` receives kMHEG5ClosedMessage; it may be null. It is not a failure if the application
 * cannot be found: the engine then reports that in its window and waits to be closed. Any thread
 * may call this, but not from a DllMain. */
uint32_t KORVEL_CALL RunMHEG5Window(MHEG5Host* host, HWND hostWindow);

/** Asks the engine to close and returns 0 immediately. Does nothing while there is no engine or
 * while its window does not exist yet: a host that must close at that moment calls it again.
 * Closing takes at most one second plus one call of the host object. Any thread may call this. */
uint32_t KORVEL_CALL ExitMHEG5(void);

/** The same request as ExitMHEG5, except that it does not check whether the window exists yet; a
 * request that comes too early is lost. The host itself restarts the engine with RunMHEG5Window
 * after the close. Returns 0. Any thread may call this. */
uint32_t KORVEL_CALL MHEG5ReStart(void);

/** Waits without limit until the engine's thread has ended, and returns 0. Returns immediately if
 * there is no engine, or inside a function of the host object: the caller is then one of the
 * engine's own threads, or the one that is starting it. The wait answers messages that other
 * threads send to the caller's windows, but removes no posted ones. It does not request a close
 * itself. Any thread may call this, but not from a DllMain. */
uint32_t KORVEL_CALL MHEG5WaitForClose(void);

#ifdef __cplusplus
}
#endif

#endif
