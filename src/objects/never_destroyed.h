// A process-wide record whose destructor never runs. When a process ends while the engine runs, its
// threads are gone at any point of their work and the libraries they used may be gone too: nothing
// may then be released.
#pragma once

namespace korvel {

template <class T>
union NeverDestroyed {
  constexpr NeverDestroyed() : value() {}
  // A defaulted destructor would be deleted.  NOLINTNEXTLINE(modernize-use-equals-default)
  ~NeverDestroyed() {}
  NeverDestroyed(const NeverDestroyed&) = delete;
  NeverDestroyed& operator=(const NeverDestroyed&) = delete;

  T value;
};

}  // namespace korvel
