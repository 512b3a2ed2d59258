#include "Score.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace Demo {

namespace {

// The parts that a song knows, by letter, in the order that the form tells.
QList<Part> arrange(const QHash<char, Part> &known, const char *form)
{
    QList<Part> parts;
    for (; *form != '\0'; ++form)
        parts.append(known.value(*form));
    return parts;
}

Part count(const QString &chords, const QString &steps)
{
    return {u"Intro"_s, Texture::Count, chords, steps};
}

Score kitchenFloorHop()
{
    Score score{u"Bluegrass/Kitchen Floor Hop.mp3"_s,
                u"Kitchen Floor Hop"_s,
                u"Tin Lantern String Band"_s,
                u"Lanterns and Ladders"_s,
                u"Bluegrass"_s,
                u"Fast but friendly: the steps stay the same, only the walls change."_s,
                u"Dorothea Quill"_s,
                u"Dorothea Quill"_s,
                u"Easy-Intermediate"_s,
                2019,
                3,
                4};
    score.bpm = 132;
    score.firstBeatMs = 412;
    score.swing = 0.04;
    score.seed = 11;
    score.parts = arrange(
        {{'I', count(u"G G G D"_s, u"Wait (16)"_s)},
         {'A',
          {u"Verse"_s, Texture::Verse, u"G G C G G G D G"_s,
           u"2 Triple (8)\n4 Basic (8)\n2 Rocking Chair, turn ½ L (8)\n2 Push Off (8)"_s}},
         {'B',
          {u"Chorus"_s, Texture::Chorus, u"C C G G C G D G"_s,
           u"Clogover Vine L (8)\n2 Charleston (8)\nClogover Vine R (8)\n2 Charleston (8)"_s}},
         {'K', {u"Break"_s, Texture::Break, u"G F G D"_s, u"Cowboy (8)\n2 Turkey (8)"_s}},
         {'E', {u"Ending"_s, Texture::Ending, u"G D G"_s, u"2 Triple (8)\nStomp Double (4)"_s}}},
        "IABKABKABE");
    return score;
}

Score ueberDenZaun()
{
    Score score{u"Traditionell/Über grüne Zäune.mp3"_s,
                u"Über grüne Zäune"_s,
                u"Kapelle Himmelreich"_s,
                u"Tanzboden, Blatt für Blatt"_s,
                u"Volksmusik"_s,
                u"Zum Aufwärmen; im Chorus fassen alle an."_s,
                u"Jörg Weidenbüchel"_s,
                u"Hannelore Süßmilch"_s,
                u"Beginner"_s,
                2021,
                1,
                5};
    score.bpm = 112;
    score.firstBeatMs = 655;
    score.swing = 0.09;
    score.seed = 22;
    score.parts = arrange(
        {{'I', count(u"D D A D"_s, u"Wait (16)"_s)},
         {'A',
          {u"Verse"_s, Texture::Verse, u"D D G D D D A D"_s,
           u"4 Basic (8)\n2 Triple (8)\n4 Basic, turn ¼ L each (8)\n2 Triple (8)"_s}},
         {'B',
          {u"Chorus"_s, Texture::Chorus, u"G D A D G D A D"_s,
           u"2 Rocking Chair (8)\n2 Push Off (8)\n2 Rocking Chair (8)\n2 Push Off (8)"_s}},
         {'K', {u"Break"_s, Texture::Break, u"Bm G A A"_s, u"2 Charleston (8)\n4 Basic (8)"_s}},
         {'E', {u"Ending"_s, Texture::Ending, u"A D"_s, u"Triple (4)\nStep & bow (4)"_s}}},
        "IABKABABE");
    return score;
}

Score roadNumberNine()
{
    Score score{u"Country/Road #9.mp3"_s,
                u"Road #9"_s,
                u"Gus Halloway & the Gravel Sons"_s,
                u"Odometer"_s,
                u"Country"_s,
                u"The second break is the long one."_s,
                u"Marvin Tellerose"_s,
                u"Petra Ostwind"_s,
                u"Intermediate"_s,
                2016,
                9,
                4};
    score.bpm = 120;
    score.firstBeatMs = 500;
    score.swing = 0.07;
    score.seed = 33;
    score.parts = arrange(
        {{'I', count(u"A A D E"_s, u"Wait (8)\n2 Charleston (8)"_s)},
         {'A',
          {u"Verse"_s, Texture::Verse, u"A A D A A F#m E E"_s,
           u"Cowboy (8)\n2 Chain (8)\nCowboy (8)\nFontana (8)"_s}},
         {'B',
          {u"Chorus"_s, Texture::Chorus, u"D D A A D A E A"_s,
           u"2 Samantha (16)\n2 Push Off (8)\n2 Triple, turn ½ R (8)"_s}},
         {'G', {u"Bridge"_s, Texture::Bridge, u"F#m D A E"_s, u"2 Joey (8)\n2 Turkey (8)"_s}},
         {'K', {u"Break"_s, Texture::Break, u"A G D A"_s, u"2 Donkey (8)\n2 Rocking Chair (8)"_s}},
         {'E',
          {u"Ending"_s, Texture::Ending, u"D E A"_s, u"2 Triple (8)\nStomp Double, Stomp (4)"_s}}},
        "IABKABGBKBE");
    return score;
}

Score neonPorchLight()
{
    Score score{u"Pop/Neon Porch Light.mp3"_s,
                u"Neon Porch Light"_s,
                u"Velvet Thermostat"_s,
                u"Small Hours, Big Rooms"_s,
                u"Pop"_s,
                u"Line dance formation, all facing front."_s,
                u"Ottilie Brand"_s,
                u"Ottilie Brand"_s,
                u"Intermediate"_s,
                2023,
                4,
                3};
    score.bpm = 126;
    score.firstBeatMs = 238;
    score.seed = 44;
    score.parts = arrange(
        {{'I', count(u"C Am F G"_s, u"Wait (16)"_s)},
         {'A',
          {u"Verse"_s, Texture::Verse, u"C Am F G C Am F G"_s,
           u"Fontana (8)\n2 Slur Basic (8)\nFontana (8)\n2 Rocking Chair, turn ½ L (8)"_s}},
         {'P',
          {u"Pre-Chorus"_s, Texture::Bridge, u"Dm F G G"_s, u"2 Brush Over (8)\n4 Basic (8)"_s}},
         {'B',
          {u"Chorus"_s, Texture::Chorus, u"F G C Am F G C C"_s,
           u"Joey, Push Off (8)\nClogover Vine L (8)\nJoey, Push Off (8)\nClogover Vine R (8)"_s}},
         {'G',
          {u"Bridge"_s, Texture::Bridge, u"Am F C G"_s, u"2 Karate Turn (8)\n2 Charleston (8)"_s}},
         {'E', {u"Ending"_s, Texture::Ending, u"F G C"_s, u"2 Triple (8)\nStep, pose (4)"_s}}},
        "IAPBAPBGBE");
    score.countIns = {{0, 8, 0}, {3, 4, 0}};
    return score;
}

Score slowRiverMorning()
{
    Score score{u"Country/Slow River Morning.mp3"_s,
                u"Slow River Morning"_s,
                u"Ada Birchwater"_s,
                u"Sandbars"_s,
                u"Country"_s,
                u"A first dance for a first evening."_s,
                u"Wendelin Achterberg"_s,
                u"Petra Ostwind"_s,
                u"Beginner"_s,
                2014,
                2,
                5};
    score.bpm = 92;
    score.firstBeatMs = 871;
    score.swing = 0.12;
    score.seed = 55;
    score.parts = arrange(
        {{'I', count(u"F F Bb C"_s, u"Wait (16)"_s)},
         {'A',
          {u"Verse"_s, Texture::Verse, u"F Bb F C F Bb C F"_s,
           u"8 Basic (16)\n2 Triple, forward (8)\n2 Triple, back (8)"_s}},
         {'B',
          {u"Chorus"_s, Texture::Chorus, u"Bb C F Dm Bb C F F"_s,
           u"2 Rocking Chair (8)\n4 Basic, turn ¼ R each (8)\n2 Rocking Chair (8)\n2 Push Off (8)"_s}},
         {'K',
          {u"Instrumental"_s, Texture::Break, u"Dm Bb F C"_s, u"2 Charleston (8)\n4 Basic (8)"_s}},
         {'E',
          {u"Ending"_s, Texture::Ending, u"Bb C F"_s, u"4 Basic (8)\nStep, touch, bow (4)"_s}}},
        "IABKABE");
    return score;
}

Score hammerAndFiddle()
{
    Score score{u"Bluegrass/Hammer and Fiddle.mp3"_s,
                u"Hammer and Fiddle"_s,
                u"The Copper Creek Ramblers"_s,
                u"Sawdust Reels"_s,
                u"Bluegrass"_s,
                u"Team number; enter from both sides during the count."_s,
                u"Rufus Tannenhauer"_s,
                u"Dorothea Quill"_s,
                u"Advanced"_s,
                2018,
                7,
                4};
    score.bpm = 148;
    score.firstBeatMs = 333;
    score.seed = 66;
    score.parts = arrange(
        {{'I', count(u"A A E A"_s, u"Enter (16)"_s)},
         {'A',
          {u"Part A"_s, Texture::Verse, u"A A D A A A E A"_s,
           u"2 Mountain Goat (8)\nSimone (8)\n2 Mountain Goat (8)\nSimone, turn ½ L (8)"_s}},
         {'B',
          {u"Part B"_s, Texture::Chorus, u"D A E A D A E A"_s,
           u"Samantha (8)\n2 Stomp Double (8)\nSamantha (8)\n2 Donkey (8)"_s}},
         {'C',
          {u"Part C"_s, Texture::Break, u"A G A G D A E E"_s,
           u"2 Karate Turn (8)\n2 Chain, L & R (8)\nCowboy (8)\n2 Joey (8)"_s}},
         {'K', {u"Break"_s, Texture::Bridge, u"F#m D A E"_s, u"2 Brush Up (8)\n2 Turkey (8)"_s}},
         {'E',
          {u"Ending"_s, Texture::Ending, u"A E A"_s,
           u"Mountain Goat, Triple (8)\n2 Stomp, hold (4)"_s}}},
        "IABKABCBABE");
    return score;
}

Score paperMoonRailway()
{
    Score score{u"Country/Paper Moon Railway.mp3"_s,
                u"Paper Moon Railway"_s,
                u"Nestor Fairweather"_s,
                u"Branch Line Ballads"_s,
                u"Western Swing"_s,
                u"From an old single; mono."_s,
                u"Lisbeth Korngold"_s,
                u"Hannelore Süßmilch"_s,
                u"Intermediate-Advanced"_s,
                1988,
                1,
                3};
    score.bpm = 108;
    score.firstBeatMs = 720;
    score.channels = 1;
    score.swing = 0.15;
    score.seed = 77;
    score.parts = arrange(
        {{'I', count(u"C C G C"_s, u"Wait (8)\nStep & clap (8)"_s)},
         {'A',
          {u"Verse"_s, Texture::Verse, u"C E A D G G C G"_s,
           u"Slur Vine L (8)\n2 Brush Over (8)\nSlur Vine R (8)\n2 Joey (8)"_s}},
         {'B',
          {u"Chorus"_s, Texture::Chorus, u"F F C A D G C C"_s,
           u"Simone (8)\n2 Charleston, turn ¼ L each (8)\nSimone (8)\n2 Chain (8)"_s}},
         {'G', {u"Bridge"_s, Texture::Bridge, u"E A D G"_s, u"Fontana (8)\n2 Karate Turn (8)"_s}},
         {'E', {u"Ending"_s, Texture::Ending, u"D G C"_s, u"Cowboy (8)\nStomp, hold (4)"_s}}},
        "IABABGBE");
    return score;
}

Score cinnamonRoad()
{
    Score score{u"Pop/Cinnamon Road.mp3"_s,
                u"Cinnamon Road"_s,
                u"Juniper Static"_s,
                u"Postcards to Nobody"_s,
                u"Pop"_s,
                u"Exhibition version with the long bridge."_s,
                u"Marvin Tellerose & Ottilie Brand"_s,
                u"Marvin Tellerose"_s,
                u"Intermediate-Advanced"_s,
                2024,
                2,
                5};
    score.bpm = 140;
    score.firstBeatMs = 290;
    score.rate = 48000;
    score.seed = 88;
    score.parts = arrange(
        {{'I', count(u"Em C G D"_s, u"Wait (16)"_s)},
         {'A',
          {u"Verse"_s, Texture::Verse, u"Em C G D Em C G D"_s,
           u"2 Turkey (8)\n2 Slur Basic, turn ½ R (8)\n2 Turkey (8)\nClogover Vine L (8)"_s}},
         {'B',
          {u"Chorus"_s, Texture::Chorus, u"G D Em C G D C C"_s,
           u"Fontana (8)\nCowboy, turn ½ L (8)\nFontana (8)\n2 Stomp Double (8)"_s}},
         {'G',
          {u"Bridge"_s, Texture::Bridge, u"Am Em C D Am Em C D"_s,
           u"2 Mountain Goat (8)\nSamantha (8)\n2 Brush Up (8)\n2 Donkey (8)"_s}},
         {'E', {u"Ending"_s, Texture::Ending, u"C D G"_s, u"2 Triple (8)\nStomp, pose (4)"_s}}},
        "IABABGBBE");
    return score;
}

} // namespace

QList<Score> songs()
{
    return {kitchenFloorHop(),  ueberDenZaun(),    roadNumberNine(),   neonPorchLight(),
            slowRiverMorning(), hammerAndFiddle(), paperMoonRailway(), cinnamonRoad()};
}

} // namespace Demo
