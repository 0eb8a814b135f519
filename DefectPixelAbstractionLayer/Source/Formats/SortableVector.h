// A vector that keeps its elements in order as they are inserted.
#pragma once

#include <algorithm>
#include <vector>

namespace KTR::DPC
{

template <typename T> class SortableVector : public std::vector<T>
{
public:
    using std::vector<T>::vector;

    // Inserts behind all elements that are not greater, by T::operator<; duplicates are kept. Appending costs a search,
    // anything else also moves the elements behind.
    typename std::vector<T>::iterator insert_sorted(const T& value)
    {
        return this->insert(std::upper_bound(this->begin(), this->end(), value), value);
    }
};

} // namespace KTR::DPC
