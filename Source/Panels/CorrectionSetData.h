// A correction set as the window knows it: what the camera said about it when the sets were read.
#pragma once

#include "CorrectionSet.h"

#include <boost/shared_ptr.hpp>

#include <QObject>

#include <memory>

// GUI thread.
class CorrectionSetData : public QObject, public KTR::DPC::CorrectionSet
{
    Q_OBJECT

public:
    // Copies name and metadata.
    CorrectionSetData(const boost::shared_ptr<KTR::DPC::CorrectionSet>& set, bool writable, bool available,
                      QObject* parent);
    // Name, metadata and flags, without a parent.
    std::unique_ptr<CorrectionSetData> Copy() const;

    void SetIfDpcOn(bool on) { m_dpcOn = on; }
    bool GetIfDpcOn() const { return m_dpcOn; }
    void SetIfRestoreDefSetAvailable(bool available) { m_restoreDefSetAvailable = available; }
    bool GetIfRestoreDefSetAvailable() const { return m_restoreDefSetAvailable; }
    void SetIsEmpty(bool empty) { m_empty = empty; }
    bool IsEmpty() const { return m_empty; }
    bool IsWritable() const { return m_writable; }
    bool IsAvailable() const { return m_available; }

    // Whether the other is a different set (by name) with the same content: equal flags (DPC and restore left out),
    // equally many metadata, and no key that both hold with values that differ in the first decimal. Values are cut
    // there, not rounded; a key that the other set lacks makes no difference by itself.
    bool IsEqual(const CorrectionSetData& other) const;

private:
    bool m_dpcOn = false;
    bool m_restoreDefSetAvailable = false;
    bool m_writable;
    bool m_available;
    bool m_empty = false;
};
