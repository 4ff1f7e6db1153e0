#include "records/frmMusic.h"

namespace vorel {

using namespace Qt::StringLiterals;

std::vector<records::ViewBlock> frmMusic::pageBlocks() const
{
    std::vector<records::ViewBlock> blocks = frmSection::pageBlocks();
    const QStringList tracks = records::Tracks(state().path(design().file), currentId());
    if (!tracks.isEmpty())
        blocks.push_back({u"TRACKS"_s, tracks.join(u"\r\n"_s), true, true});
    return blocks;
}

}
