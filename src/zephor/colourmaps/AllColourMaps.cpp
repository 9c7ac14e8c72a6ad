#include "zephor/colourmaps/AllColourMaps.h"

#include "zephor/colourmaps/BerryColorMaps.h"
#include "zephor/colourmaps/EmblemColorMaps.h"
#include "zephor/colourmaps/FireColorMaps.h"
#include "zephor/colourmaps/FixedTables.h"
#include "zephor/colourmaps/GreenColorMaps.h"
#include "zephor/colourmaps/MetalColorMaps.h"
#include "zephor/colourmaps/PurpleColorMaps.h"
#include "zephor/colourmaps/RainbowColorMaps.h"
#include "zephor/colourmaps/RandomHueColorMaps.h"
#include "zephor/colourmaps/WaterColorMaps.h"

#include <tuple>

namespace orvane::zephor {

namespace {

// In the order of their ids, 11 to 65.
using ComputedMaps =
    std::tuple<AquaColorMap, ColorGapColorMap, HueWheelColorMap, SpectrologistAssistantColorMap,
               BizzaroColorMap, DTWildWestEndColorMap, MutedMiddleColorMap, FirestormColorMap, GreenColorMap,
               DTLakeOfFireColorMap, ColorGapPurityColorMap, ColorGapSunshineColorMap, BizzaroByClockColorMap,
               BloodColorMap, DaliColorMap, DarkRainbowColorMap, DaydreamColorMap, DTAntarctisColorMap,
               DTGlowsColorMap, DTGreenPoisonColorMap, DTHorrorColorMap, DTMetalColorMap,
               DTNeonKnightsColorMap, DTNovemberRainColorMap, DTOceanClubColorMap, DTPlasicColorMap,
               DTPurpleHazeColorMap, ElectricAcidColorMap, HeroColorMap, Hero3ColorMap, IceNightshadeColorMap,
               LustColorMap, MidnightDreamColorMap, MononokeColorMap, MysteryUnveiledDimColorMap,
               MysteryUnveiledJellyfishColorMap, OldGloryColorMap, OrangeToBlueColorMap,
               PrimarilyMineColorMap, PunkinColorMap, PurpleAndBluesColorMap, PurpleAndBluesIIColorMap,
               ScytheColorMap, SolarWindsColorMap, StrawberryColorMap, StrawberryDreamsColorMap,
               SunchemicalsColorMap, TealColorMap, SilverMachineColorMap, JuiceColorMap, LatiumColorMap,
               PrimarilyMineIColorMap, PurpleGhostColorMap, QuickSilverColorMap, RadioactiveColorMap>;
static_assert(std::tuple_size_v<ComputedMaps> == 55);

struct Maps {
    Maps() {
        std::apply([this](auto&... map) { (all.Enter(map), ...); }, computed);
    }

    ComputedMaps computed;
    ColourMaps all{ FixedTables() };
};

} // namespace

const ColourMaps& AllColourMaps() {
    static Maps sMaps;
    return sMaps.all;
}

} // namespace orvane::zephor
