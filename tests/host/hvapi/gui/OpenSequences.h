#pragma once

#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"

#include <gtest/gtest.h>

/// Closes what a test has opened.
class OpenSequences : public ::testing::Test
{
protected:
    static SequenceDescription scene(QString const& id) { return {id, SequenceKind::Scene3D, false, {}, {}}; }

    void TearDown() override
    {
        auto& registry = SequenceRegistry::instance();
        for (auto* sequence : registry.sequences())
            registry.close(sequence);
    }
};
