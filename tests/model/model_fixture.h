#pragma once

/// Working models for tests, on the projects of tests/support.

#include <gmock/gmock.h>

#include <memory>

#include "model/working_model.h"
#include "tests/support/project_test.h"

namespace mrl::test {

/// Releases a model as a tab does.
struct ReleaseModel
{
    void operator()(LCM_DataClass* model) const { model->release(); }
};
using Model = std::unique_ptr<LCM_DataClass, ReleaseModel>;

class ModelTest : public ProjectTest
{
  protected:
    Model load() const { return Model(new LCM_DataClass(db)); }

    void putUnder(const char* key, const tagCDB_LC_ACT& record) const
    {
        project.putAction(codeOf(key), record);
    }
    void appendUnder(const char* key, const tagCDB_LC_ACT& record) const
    {
        project.append(LC_KWH_ACTIONS, codeOf(key), record);
    }
    static tagCDB_LC_ACT ofKind(int kind, tagCDB_LC_ACT record)
    {
        record.kind = kind;
        return record;
    }
};

/// A tree in one line: code and state of each entry, the children of a parent in brackets, own actions with a
/// star: "G:1 Q:0(Q_1:1) MY:1*".
inline std::string shapeOf(const std::vector<LCM_ActionEntry*>& tree)
{
    const auto one = [](const LCM_SubAction& entry) {
        char bytes[4];
        lcm_word_to_chars(entry.code, bytes);
        return QByteArray(bytes, 4).trimmed().toStdString() + ":" + std::to_string(entry.state);
    };
    std::string shape;
    for (const LCM_ActionEntry* parent : tree) {
        shape += (shape.empty() ? "" : " ") + one(*parent) + (parent->userDefined ? "*" : "");
        std::string children;
        for (const LCM_SubAction* child : parent->subActions) {
            children += (children.empty() ? "" : " ") + one(*child);
        }
        if (!children.empty()) {
            shape += "(" + children + ")";
        }
    }
    return shape;
}

inline std::string titleOf(const tagCDB_LC_ACT& record) { return lcm_title_text(record.title).toStdString(); }

inline tagCDB_LC_ACT found(const LCM_DataClass& model, const char* name, bool inDesignCode = false)
{
    tagCDB_LC_ACT record{};
    EXPECT_EQ(model.findAction(codeOf(name), record, inDesignCode), 1) << name;
    return record;
}

} // namespace mrl::test
