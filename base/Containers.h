//===- base/Containers.h - The framework's container names ----------------===//
//
// The layer is written against the framework's container names. They are the
// standard containers: the names exist so that code reads as documented and so
// that an allocator can be swapped in one place. qo::rbtree and qo::map are the
// ordered map (keys in qo::less order, which for qoString::CString is the
// byte-wise strcmp order including embedded zero bytes).
//
//===----------------------------------------------------------------------===//
#ifndef QO_CONTAINERS_H
#define QO_CONTAINERS_H

#include <functional>
#include <list>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace qo {

template <class T> using less = std::less<T>;
template <class T, class A = std::allocator<T>>
using vector = std::vector<T, A>;
template <class T, class A = std::allocator<T>> using list = std::list<T, A>;
template <class K, class V, class Compare = less<K>,
          class A = std::allocator<std::pair<const K, V>>>
using rbtree = std::map<K, V, Compare, A>;
template <class K, class V, class Compare = less<K>,
          class A = std::allocator<std::pair<const K, V>>>
using map = std::map<K, V, Compare, A>;
template <class K, class Compare = less<K>> using set = std::set<K, Compare>;
template <class K, class V, class H = std::hash<K>>
using unordered_map = std::unordered_map<K, V, H>;
template <class K, class H = std::hash<K>>
using unordered_set = std::unordered_set<K, H>;

} // namespace qo

#endif // QO_CONTAINERS_H
