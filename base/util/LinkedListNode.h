//===- base/util/LinkedListNode.h - Intrusive doubly linked lists ---------===//
//
// qoUtil::LinkedListNode<T> is both the link that a list element carries (T
// derives from it) and the head of a list of such elements (anything may
// derive from it or hold one as a member: a cache manager is the head of its
// own least-recently-used list). The list is circular through the head, so
// every operation is O(1) and needs no null checks, and an element knows how
// to leave its list without being told which list that is. A node that is in
// no list points at itself.
//
// Ownership: none. The list never allocates or frees; an element's destructor
// unlinks it. Destroy (or clear()) a head only after its elements have left,
// or they stay linked to each other in a ring with no head.
// To be in two lists at once, an element derives from two nodes told apart
// by the Tag parameter.
//
// Example:
//   struct Job : qoUtil::LinkedListNode<Job> { int Id; };
//   qoUtil::LinkedListNode<Job> queue;      // a head
//   Job a{{}, 1}, b{{}, 2};
//   queue.pushBack(a);
//   queue.pushBack(b);
//   queue.pushBack(a);                      // moves a behind b
//   for (Job &j : queue) use(j.Id);         // 2, 1
//
//===----------------------------------------------------------------------===//
#ifndef QOUTIL_LINKEDLISTNODE_H
#define QOUTIL_LINKEDLISTNODE_H

#include <cstddef>
#include <iterator>

namespace qoUtil {

template <class T, class Tag = void> class LinkedListNode {
public:
  LinkedListNode() noexcept : Prev(this), Next(this) {}
  ~LinkedListNode() { unlink(); }
  LinkedListNode(const LinkedListNode &) = delete;
  LinkedListNode &operator=(const LinkedListNode &) = delete;

  // As an element: whether it is in a list. As a head: whether it has any.
  bool linked() const noexcept { return Next != this; }
  bool empty() const noexcept { return Next == this; }
  // Leaves the list it is in, if any.
  void unlink() noexcept {
    Prev->Next = Next;
    Next->Prev = Prev;
    Prev = Next = this;
  }

  // Head operations. An element already in a list (this one or another)
  // leaves it first, so pushBack doubles as "mark most recent".
  void pushFront(T &Element) noexcept { node(Element).linkAfter(*this); }
  void pushBack(T &Element) noexcept { node(Element).linkAfter(*Prev); }
  // Null when the list is empty.
  T *front() noexcept { return empty() ? nullptr : &object(Next); }
  T *back() noexcept { return empty() ? nullptr : &object(Prev); }
  T *popFront() noexcept {
    T *First = front();
    if (First)
      node(*First).unlink();
    return First;
  }
  // Unlinks every element.
  void clear() noexcept {
    while (!empty())
      Next->unlink();
  }
  std::size_t size() const noexcept {
    std::size_t N = 0;
    for (const LinkedListNode *I = Next; I != this; I = I->Next)
      ++N;
    return N;
  }

  // Element operations: Element goes right before or after Position (an
  // element or a head), leaving its old list first.
  static void insertBefore(LinkedListNode &Position, T &Element) noexcept {
    node(Element).linkAfter(*Position.Prev);
  }
  static void insertAfter(LinkedListNode &Position, T &Element) noexcept {
    node(Element).linkAfter(Position);
  }

  // Walks from front to back. Unlinking the element an iterator stands on
  // invalidates that iterator: step past it first.
  class iterator {
  public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T *;
    using reference = T &;

    iterator() = default;
    T &operator*() const { return object(At); }
    T *operator->() const { return &object(At); }
    iterator &operator++() {
      At = At->Next;
      return *this;
    }
    iterator operator++(int) {
      iterator Old = *this;
      ++*this;
      return Old;
    }
    iterator &operator--() {
      At = At->Prev;
      return *this;
    }
    iterator operator--(int) {
      iterator Old = *this;
      --*this;
      return Old;
    }
    friend bool operator==(const iterator &A, const iterator &B) {
      return A.At == B.At;
    }

  private:
    friend class LinkedListNode;
    explicit iterator(LinkedListNode *At) : At(At) {}
    LinkedListNode *At = nullptr;
  };

  iterator begin() noexcept { return iterator(Next); }
  iterator end() noexcept { return iterator(this); }

private:
  static LinkedListNode &node(T &Element) noexcept { return Element; }
  static T &object(LinkedListNode *N) noexcept { return static_cast<T &>(*N); }

  void linkAfter(LinkedListNode &Position) noexcept {
    if (&Position == this)
      return;
    unlink();
    Prev = &Position;
    Next = Position.Next;
    Position.Next->Prev = this;
    Position.Next = this;
  }

  LinkedListNode *Prev;
  LinkedListNode *Next;
};

} // namespace qoUtil

#endif // QOUTIL_LINKEDLISTNODE_H
