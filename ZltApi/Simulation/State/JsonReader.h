// Reads the known keys of a JSON object and refuses the rest.
#pragma once

#include <nlohmann/json.hpp>

#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace Simulation
{

// Every operation throws std::runtime_error with a full sentence that starts with the given subject.
class JsonReader
{
public:
    JsonReader(const nlohmann::json& json, std::string subject) : m_json(json), m_subject(std::move(subject))
    {
        if (!json.is_object())
        {
            throw std::runtime_error(m_subject + " must be a JSON object.");
        }
    }

    // Leaves the value alone when the key is absent. A number must fit the type that it is read into.
    template <typename Value> void Read(const char* key, Value& value)
    {
        if (const nlohmann::json* const found = Find(key))
        {
            Convert(key, *found, value);
        }
    }
    template <typename Value> void Read(const char* key, std::optional<Value>& value)
    {
        if (const nlohmann::json* const found = Find(key))
        {
            Convert(key, *found, value.emplace());
        }
    }

    // Null when the key is absent.
    const nlohmann::json* Find(const char* key)
    {
        m_known.insert(key);
        const auto found = m_json.find(key);
        return found == m_json.end() ? nullptr : &*found;
    }

    // To be called last: a key that was never asked for is a mistake.
    void RefuseOthers() const
    {
        for (const auto& item : m_json.items())
        {
            if (m_known.count(item.key()) == 0)
            {
                throw std::runtime_error(m_subject + " has the unknown key \"" + item.key() + "\".");
            }
        }
    }

    [[noreturn]] void Refuse(const std::string& key) const
    {
        throw std::runtime_error(m_subject + " has a value of \"" + key + "\" that does not fit.");
    }

private:
    template <typename Value> void Convert(const char* key, const nlohmann::json& json, Value& value) const
    {
        if (!Fits<Value>(json))
        {
            Refuse(key);
        }
        value = json.get<Value>();
    }

    template <typename Value> static bool Fits(const nlohmann::json& json)
    {
        using Limits = std::numeric_limits<Value>;
        if constexpr (std::is_same_v<Value, bool>)
        {
            return json.is_boolean();
        }
        else if constexpr (std::is_same_v<Value, std::string>)
        {
            return json.is_string();
        }
        else if constexpr (std::is_floating_point_v<Value>)
        {
            return json.is_number();
        }
        else if (json.is_number_unsigned())
        {
            return json.get<std::uint64_t>() <= static_cast<std::uint64_t>(Limits::max());
        }
        else
        {
            return json.is_number_integer() && std::is_signed_v<Value> &&
                   json.get<std::int64_t>() >= static_cast<std::int64_t>(Limits::min());
        }
    }

    const nlohmann::json& m_json;
    const std::string m_subject;
    std::set<std::string> m_known;
};

} // namespace Simulation
