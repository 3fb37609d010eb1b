// The singly linked list of items, actions and parameters. It owns its values. Appending takes
// constant time, a long list is released without recursion, and a failed allocation changes
// nothing.
#pragma once

#include <cstddef>
#include <new>
#include <utility>

#include "objects/memory.h"

namespace korvel {

template <class T> class List {
  struct Node {
    explicit Node(T&& initial) : value(std::move(initial)) {}
    T value;
    Node* next = nullptr;
  };

  template <class Value, class NodePointer> class Walk {
   public:
    explicit Walk(NodePointer node) : node_(node) {}
    Value& operator*() const { return node_->value; }
    Value* operator->() const { return &node_->value; }
    Walk& operator++() {
      node_ = node_->next;
      return *this;
    }
    bool operator==(const Walk& other) const { return node_ == other.node_; }

   private:
    NodePointer node_;
  };

 public:
  List() = default;
  List(List&& other) noexcept
      : head_(std::exchange(other.head_, nullptr)), tail_(std::exchange(other.tail_, nullptr)) {}
  List& operator=(List&& other) noexcept {
    if (this != &other) {
      Clear();
      head_ = std::exchange(other.head_, nullptr);
      tail_ = std::exchange(other.tail_, nullptr);
    }
    return *this;
  }
  List(const List&) = delete;
  List& operator=(const List&) = delete;
  ~List() { Clear(); }

  auto begin() { return Walk<T, Node*>(head_); }
  auto end() { return Walk<T, Node*>(nullptr); }
  auto begin() const { return Walk<const T, const Node*>(head_); }
  auto end() const { return Walk<const T, const Node*>(nullptr); }

  [[nodiscard]] bool IsEmpty() const { return head_ == nullptr; }
  [[nodiscard]] std::size_t Size() const {
    std::size_t count = 0;
    for (const Node* node = head_; node != nullptr; node = node->next) ++count;
    return count;
  }
  // The value at a 0-based place, or null past the end.
  [[nodiscard]] T* At(std::size_t index) {
    Node* node = head_;
    for (; node != nullptr && index > 0; --index) node = node->next;
    return node == nullptr ? nullptr : &node->value;
  }
  [[nodiscard]] const T* At(std::size_t index) const { return const_cast<List*>(this)->At(index); }
  [[nodiscard]] T* Last() { return tail_ == nullptr ? nullptr : &tail_->value; }

  // Moves `value` to the end and returns a pointer to it; null, with `value` unchanged, if memory
  // runs out.
  [[nodiscard]] T* Append(T&& value) { return Link(tail_, std::move(value)); }
  // The same at a 0-based place; a place past the end means the end.
  [[nodiscard]] T* InsertAt(std::size_t index, T&& value) {
    Node* before = nullptr;
    for (Node* node = head_; node != nullptr && index > 0; node = node->next, --index)
      before = node;
    return Link(before, std::move(value));
  }

  // Removes the first value that `matches` and moves it to `taken` (may be null). False when
  // there is none.
  template <class Predicate> bool RemoveFirst(Predicate&& matches, T* taken = nullptr) {
    Node* before = nullptr;
    for (Node* node = head_; node != nullptr; before = node, node = node->next) {
      if (!matches(node->value)) continue;
      Unlink(before, node, taken);
      return true;
    }
    return false;
  }
  // Removes every value that `matches`.
  template <class Predicate> void RemoveAll(Predicate&& matches) {
    Node* before = nullptr;
    for (Node* node = head_; node != nullptr;) {
      Node* next = node->next;
      if (matches(node->value)) {
        Unlink(before, node, nullptr);
      } else {
        before = node;
      }
      node = next;
    }
  }

  void Clear() {
    tail_ = nullptr;
    while (head_ != nullptr) {
      Node* node = std::exchange(head_, head_->next);
      Destroy(node);
    }
  }

 private:
  T* Link(Node* before, T&& value) {
    void* block = AllocateZeroed(sizeof(Node));
    if (block == nullptr) return nullptr;
    Node* node = new (block) Node(std::move(value));
    Node*& slot = before == nullptr ? head_ : before->next;
    node->next = slot;
    slot = node;
    if (node->next == nullptr) tail_ = node;
    return &node->value;
  }
  void Unlink(Node* before, Node* node, T* taken) {
    (before == nullptr ? head_ : before->next) = node->next;
    if (tail_ == node) tail_ = before;
    if (taken != nullptr) *taken = std::move(node->value);
    Destroy(node);
  }
  static void Destroy(Node* node) {
    node->~Node();
    ReleaseMemory(node);
  }

  Node* head_ = nullptr;
  Node* tail_ = nullptr;
};

}  // namespace korvel
