#pragma once

#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

#include "host/framework/types.h"

/// Growable array with the application framework's names. It is not copyable by assignment: `Copy`
/// says it in words. An index outside the array throws `std::out_of_range`.
template <class T>
class CArray {
 public:
  CArray() = default;
  CArray(const CArray&) = delete;
  CArray& operator=(const CArray&) = delete;

  std::ptrdiff_t GetSize() const { return static_cast<std::ptrdiff_t>(items_.size()); }
  std::ptrdiff_t GetCount() const { return GetSize(); }
  bool IsEmpty() const { return items_.empty(); }

  const T& GetAt(std::ptrdiff_t index) const { return items_.at(static_cast<std::size_t>(index)); }
  T& ElementAt(std::ptrdiff_t index) { return items_.at(static_cast<std::size_t>(index)); }
  void SetAt(std::ptrdiff_t index, const T& value) { ElementAt(index) = value; }
  const T& operator[](std::ptrdiff_t index) const { return GetAt(index); }
  T& operator[](std::ptrdiff_t index) { return ElementAt(index); }

  /// Appends `value` and returns its index.
  std::ptrdiff_t Add(const T& value) {
    items_.push_back(value);
    return GetSize() - 1;
  }
  void SetSize(std::ptrdiff_t size) { items_.resize(static_cast<std::size_t>(size)); }
  void RemoveAll() { items_.clear(); }
  void Copy(const CArray& other) { items_ = other.items_; }

  auto begin() const { return items_.begin(); }
  auto end() const { return items_.end(); }

 private:
  std::vector<T> items_;
};

/// `CArray` that is a value: copying and assigning it copy the elements.
template <class T>
class CArrayEx : public CArray<T> {
 public:
  CArrayEx() = default;
  CArrayEx(const CArrayEx& other) : CArray<T>() { this->Copy(other); }
  CArrayEx& operator=(const CArrayEx& other) {
    if (this != &other) this->Copy(other);
    return *this;
  }
};

/// Hash map with the application framework's names. `ARG_KEY` and `ARG_VALUE` are the types in
/// which keys and values are handed in. A pair found by `PLookup` stays where it is until its key
/// is removed.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap {
 public:
  struct CPair {
    const KEY key;
    VALUE value;
  };

  explicit CMap(std::ptrdiff_t blockSize = 10) : blockSize_(blockSize) {}

  std::ptrdiff_t GetCount() const { return static_cast<std::ptrdiff_t>(pairs_.size()); }
  bool IsEmpty() const { return pairs_.empty(); }
  std::ptrdiff_t GetBlockSize() const { return blockSize_; }

  /// Sizes the hash table for about `size` keys; the content stays.
  void InitHashTable(std::size_t size) { pairs_.reserve(size); }
  std::size_t GetHashTableSize() const { return pairs_.bucket_count(); }

  bool Lookup(ARG_KEY key, VALUE& value) const {
    const CPair* pair = PLookup(key);
    if (pair == nullptr) return false;
    value = pair->value;
    return true;
  }
  /// The pair of `key`, or null.
  const CPair* PLookup(ARG_KEY key) const {
    const auto found = pairs_.find(key);
    return found == pairs_.end() ? nullptr : &found->second;
  }
  CPair* PLookup(ARG_KEY key) {
    const auto found = pairs_.find(key);
    return found == pairs_.end() ? nullptr : &found->second;
  }
  /// The value of `key`, which is added with a default value when it is new.
  VALUE& operator[](ARG_KEY key) {
    return pairs_.try_emplace(key, CPair{key, VALUE()}).first->second.value;
  }
  void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
  bool RemoveKey(ARG_KEY key) { return pairs_.erase(key) != 0; }
  void RemoveAll() { pairs_.clear(); }

 private:
  std::ptrdiff_t blockSize_;
  std::unordered_map<KEY, CPair> pairs_;
};
