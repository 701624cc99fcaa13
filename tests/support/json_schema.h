#pragma once

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <vector>

// As much of JSON schema as docs/*.schema.json use: type, required, properties, additionalProperties, items,
// enum, minimum, anyOf, $ref into definitions. Any other word in a schema is a fault, so that none is skipped
// unseen.
class JsonSchema
{
public:
    using Value = nlohmann::ordered_json;

    explicit JsonSchema(Value schema)
        : schema_(std::move(schema))
    {
    }

    // Every fault with its place; empty where the value follows the schema.
    std::vector<std::string> faultsOf(const Value& value) const
    {
        std::vector<std::string> faults;
        check(schema_, value, "", faults);
        return faults;
    }

private:
    using Faults = std::vector<std::string>;

    static bool isOfType(const Value& value, const std::string& type)
    {
        if (type == "number")
            return value.is_number();
        if (type == "integer")
            return value.is_number_integer();
        return type == value.type_name();
    }

    static void checkType(const Value& types, const Value& value, const std::string& place, Faults& faults)
    {
        const bool isRight = types.is_string()
            ? isOfType(value, types)
            : std::any_of(
                types.begin(), types.end(), [&](const Value& type) { return isOfType(value, type); });
        if (!isRight)
            faults.push_back(place + " is " + value.type_name() + ", not " + types.dump());
    }

    void checkMembers(const Value& schema, const Value& value, const std::string& place, Faults& faults) const
    {
        if (!value.is_object())
            return;
        for (const auto& [key, member] : value.items()) {
            if (schema.contains("properties") && schema["properties"].contains(key))
                check(schema["properties"][key], member, place + "/" + key, faults);
            else if (schema.contains("additionalProperties")) {
                if (schema["additionalProperties"].is_object())
                    check(schema["additionalProperties"], member, place + "/" + key, faults);
                else if (schema["additionalProperties"] == false)
                    faults.push_back(place + " has " + key);
            }
        }
    }

    void checkWord(const std::string& word,
        const Value& schema,
        const Value& value,
        const std::string& place,
        Faults& faults) const
    {
        const Value& demand = schema[word];
        if (word == "$ref") {
            const std::string prefix = "#/definitions/";
            check(schema_["definitions"].at(demand.get<std::string>().substr(prefix.size())),
                value,
                place,
                faults);
        } else if (word == "type") {
            checkType(demand, value, place, faults);
        } else if (word == "required") {
            for (const Value& key : demand)
                if (value.is_object() && !value.contains(key.get<std::string>()))
                    faults.push_back(place + " lacks " + key.get<std::string>());
        } else if (word == "items") {
            for (std::size_t i = 0; value.is_array() && i < value.size(); ++i)
                check(demand, value[i], place + "/" + std::to_string(i), faults);
        } else if (word == "enum") {
            if (std::find(demand.begin(), demand.end(), value) == demand.end())
                faults.push_back(place + " is " + value.dump());
        } else if (word == "minimum") {
            if (value.is_number() && value < demand)
                faults.push_back(place + " is below " + demand.dump());
        } else if (word == "anyOf") {
            const auto suits = [&](const Value& choice) {
                Faults own;
                check(choice, value, place, own);
                return own.empty();
            };
            if (std::none_of(demand.begin(), demand.end(), suits))
                faults.push_back(place + " is none of the choices");
        } else if (word != "properties" && word != "additionalProperties" && word != "description"
            && word != "title" && word != "definitions" && word != "$schema") {
            faults.push_back("the schema says " + word + ", which is not checked");
        }
    }

    void check(const Value& schema, const Value& value, const std::string& place, Faults& faults) const
    {
        for (const auto& word : schema.items())
            checkWord(word.key(), schema, value, place, faults);
        checkMembers(schema, value, place, faults);
    }

    Value schema_;
};
