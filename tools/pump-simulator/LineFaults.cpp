#include "LineFaults.h"

namespace simulator {

LineFaults::LineFaults(const DirectionFaults& rates, quint64 seed)
    : mRates(rates)
    , mRandom(static_cast<quint32>(seed ^ (seed >> 32))) {}

bool LineFaults::active() const {
    return mRates.dropRate > 0.0 || mRates.corruptRate > 0.0 || mRates.duplicateRate > 0.0;
}

LineFaults::Fate LineFaults::nextFate() {
    if (!active()) {
        return Fate::Pass;
    }
    // One draw per frame, cut into bands, keeps the sequence of draws independent of the fates.
    const double draw = mRandom.generateDouble();
    double band = mRates.dropRate;
    if (draw < band) {
        return Fate::Drop;
    }
    band += mRates.corruptRate;
    if (draw < band) {
        return Fate::Corrupt;
    }
    band += mRates.duplicateRate;
    if (draw < band) {
        return Fate::Duplicate;
    }
    return Fate::Pass;
}

void LineFaults::corrupt(QByteArray& bytes, qsizetype length) {
    if (length <= 0) {
        return;
    }
    const auto at = static_cast<qsizetype>(mRandom.bounded(static_cast<quint32>(length)));
    const auto bit = static_cast<char>(1u << mRandom.bounded(8u));
    bytes[at] = static_cast<char>(bytes[at] ^ bit);
}

} // namespace simulator
