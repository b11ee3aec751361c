// SPDX-License-Identifier: GPL-3.0-or-later
#include "questionbank.h"

#include "theme.h"

#include <QStringList>
#include <QtGlobal>

namespace {

using Q = BankQuestion;
using F = BankFeedback;

QString s(const char16_t *text) {
    return QString::fromUtf16(text);
}

const QString kRight = QStringLiteral("Richtig!");
const QString kWrong = QStringLiteral("Falsch!");

// The last two pictures of every page: nothing typed, and a letter other than A, B or C.
F emptyAnswer() {
    return {.body = s(u"Du hast vergessen, etwas einzugeben."), .tryAgain = true};
}

F otherLetter() {
    return {.verdict = kWrong,
            .body = s(u"Du darfst nur mit A, B oder C (oder a, b oder c) antworten."),
            .tryAgain = true};
}

std::array<PageBank, 10> makeBank() {
    std::array<PageBank, 10> bank;

    bank[0].questions = {{
        {.text = s(u"1. Welche zwei Voraussetzungen müssen vorhanden sein, damit Strom fließt?"),
         .options =
             {s(u"ein elektrisches Feld und ein Vakuum"),
              s(u"eine Spannungsquelle und ein elektrisches Feld"),
              s(u"ein elektrisches Feld (Spannungsquelle) und freibewegliche Ladungsträger")}},
        {.text = s(u"2. Wie sind Elektronen geladen?"),
         .options = {s(u"positiv"), s(u"negativ"), s(u"elektrisch neutral")}},
        {.text = s(u"3. Welche Ladungsträger leiten in Metallen den Strom?"),
         .options = {s(u"freie Elektronen"), s(u"Ionen"), s(u"Löcher")}},
        {.text = s(u"4. Warum leitet Kupfer den Strom besser als Eisen?"),
         .options = {s(u"Kupfer besitzt mehr freie Elektronen als Eisen."),
                     s(u"Kupfer besitzt weniger freie Elektronen als Eisen."),
                     s(u"Kupfer besitzt mehr bewegliche Ionen als Eisen.")}},
        {.text =
             s(u"5. Wie ändert sich bei Metallen der Widerstand, wenn das Metall erwärmt wird?"),
         .options = {s(u"Der Widerstand wird größer."), s(u"Der Widerstand wird kleiner."),
                     s(u"Der Widerstand ändert sich überhaupt nicht.")}},
    }};
    bank[0].feedback = {
        {.verdict = kWrong,
         .body =
             s(u"Das elektrische Feld ist eine notwendige Voraussetzung für das Fließen von Strom. "
               u"Dieser Teil der Antwort ist richtig."),
         .tryAgain = true},
        {.verdict = s(u"Unvollständig und deshalb falsch!"),
         .body =
             s(u"Elektrisches Feld und Spannungsquelle sind fast dasselbe. Dieser Teil der Antwort "
               u"ist richtig."),
         .tryAgain = true},
        {.verdict = kRight},
        {.verdict = kWrong,
         .body = s(u"Ein Tipp: Sie werden von negativ geladenen Körpern abgestoßen."),
         .tryAgain = true},
        {.verdict = kRight},
        {.verdict = kRight},
        {.verdict = kWrong, .tryAgain = true},
        {.verdict = kWrong, .body = s(u"Löcher treten nur bei Halbleitern auf."), .tryAgain = true},
        {.verdict = kRight},
        {.verdict = kWrong,
         .body = s(u"Wenn weniger freie Elektronen vorhanden sind, wird doch der Strom schlechter "
                   u"geleitet!"),
         .tryAgain = true},
        {.verdict = kWrong,
         .body =
             s(u"Du müsstest bereits von der vorhergehenden Frage wissen, dass bei Metallen die "
               u"Ionen nicht den Strom leiten."),
         .tryAgain = true},
        {.verdict = kRight},
        {.verdict = kWrong, .tryAgain = true},
        {.verdict = kWrong,
         .body =
             s(u"Ein Tipp: Bei Erwärmung bewegen sich alle Teilchen schneller. Dadurch wird die "
               u"Bewegung der freien Elektronen stärker behindert."),
         .tryAgain = true},
        emptyAnswer(),
        otherLetter(),
    };

    bank[1].questions = {{
        {.text = s(u"6. In welchem Augenblick fließt durch eine Glühlampe der größte Strom (die "
                   u"Spannung soll konstant bleiben)?"),
         .leadIn = s(u"Der Strom durch eine Glühlampe ist dann am größten, wenn"),
         .options = {s(u"sie ausgeschaltet wird."), s(u"sie eine Weile in Betrieb ist."),
                     s(u"sie noch relativ kalt ist (beim Einschalten).")}},
        {.text = s(u"7. Welche Ladungsträger leiten in Gasen den Strom?"),
         .options = {s(u"nur freie Elektronen"), s(u"nur Ionen (positive und negative)"),
                     s(u"freie Elektronen und Ionen (positive und negative)")}},
        {.text = s(u"8. Was ist Stoßionisation?"),
         .options =
             {s(u"Aus glühenden Metallen treten Elektronen aus."),
              s(u"Stoßionisation ist das Erzeugen von Ionen durch Zusammenstoßen von Ionen mit "
                u"Gasmolekülen."),
              s(u"Fällt Licht auf einige Stoffe (z.B. Selen), treten Elektronen aus.")}},
        {.text = s(u"9. Welches Teilchen löst eine Stoßionisation aus?"),
         .options = {s(u"ein Ion"), s(u"ein Elektron"), s(u"ein Loch (Defektelektron)")}},
        {.text = s(u"10. Wie wirkt sich ein niedriger Gasdruck auf die Stoßionisation aus?"),
         .options = {s(u"Niedriger Gasdruck fördert die Stoßionisation."),
                     s(u"Niedriger Gasdruck hemmt die Stoßionisation."),
                     s(u"Der Gasdruck beeinflusst die Stoßionisation nicht.")}},
    }};
    bank[1].feedback = {
        {.verdict = kWrong,
         .body = s(u"Wenn sie in Betrieb ist, ist die Temperatur hoch und damit der Widerstand "
                   u"auch groß. Deshalb ist der Strom relativ klein."),
         .tryAgain = true}, // 0 6A
        {.verdict = kWrong,
         .body = s(u"Wenn die Glühlampe eine Weile in Betrieb ist, ist die Temperatur hoch und "
                   u"damit der Widerstand auch groß. Deshalb ist der Strom relativ klein."),
         .tryAgain = true},  // 1 6B
        {.verdict = kRight}, // 2 6C
        {.verdict = kWrong,
         .body = s(u"Die freien Elektronen sind nicht die einzigen Ladungsträger in Gasen."),
         .tryAgain = true}, // 3 7A
        {.verdict = kWrong,
         .body = s(u"Die Ionen sind nicht die einzigen Ladungsträger in Gasen."),
         .tryAgain = true},                    // 4 7B
        {.verdict = kRight},                   // 5 7C
        {.verdict = kWrong, .tryAgain = true}, // 6 8A
        {.verdict = kRight},                   // 7 8B
        {.verdict = kWrong, .tryAgain = true}, // 8 8C
        {.verdict = kRight},                   // 9 9A
        {.verdict = kWrong,
         .body = s(u"Ein Elektron hat eine zu kleine Masse, um Stoßionisation auszulösen."),
         .tryAgain = true}, // 10 9B
        {.verdict = kWrong,
         .body = s(u"Stoßionisation tritt in Gasen auf. In Gasen gibt es keine Löcher "
                   u"(Defektelektronen)."),
         .tryAgain = true},  // 11 9C
        {.verdict = kRight}, // 12 10A
        {.verdict = kWrong}, // 13 10B
        {.verdict = kWrong}, // 14 10C
        emptyAnswer(),
        otherLetter(),
    };

    bank[2].questions = {{
        {.text = s(u"11. Wie wirkt sich eine niedrige Spannung auf die Stoßionisation aus?"),
         .options = {s(u"Niedrige Spannung fördert die Stoßionisation."),
                     s(u"Niedrige Spannung hemmt die Stoßionisation."),
                     s(u"Die Spannung beeinflusst die Stoßionisation nicht.")}},
        {.text = s(u"12. Welcher Vorgang spielt sich in Leuchtstoffröhren ab?"),
         .options = {s(u"Glühemission"), s(u"Stoßionisation"), s(u"Fotoemission")}},
        {.text = s(u"13. Aus glühenden Metallen treten Elektronen aus. Wie heißt dieser Vorgang?"),
         .options = {s(u"Glühemission"), s(u"Stoßionisation"), s(u"Fotoemission")}},
        {.text = s(u"14. Welche Ladungsträger werden durch Glühemission in das Vakuum gebracht?"),
         .options = {s(u"Löcher"), s(u"Ionen"), s(u"Elektronen")}},
        {.text = s(u"15. Aus einigen Stoffen (z.B. Selen) treten Elektronen aus, wenn sie von "
                   u"Licht bestrahlt werden. Wie heißt dieser Vorgang?"),
         .options = {s(u"Glühemission"), s(u"Stoßionisation"), s(u"Fotoemission")}},
    }};
    bank[2].feedback = {
        {.verdict = kWrong,
         .body = s(u"Bei niedriger Spannung ist auch die Beschleunigung der Ionen kleiner."),
         .tryAgain = true},  // 0 11A
        {.verdict = kRight}, // 1 11B
        {.verdict = kWrong,
         .body = s(u"Ist die Spannung klein, werden auch die Ionen weniger beschleunigt, die die "
                   u"Stoßionisation auslösen."),
         .tryAgain = true},                    // 2 11C
        {.verdict = kWrong, .tryAgain = true}, // 3 12A
        {.verdict = kRight},                   // 4 12B
        {.verdict = kWrong, .tryAgain = true}, // 5 12C
        {.verdict = kRight},                   // 6 13A
        {.verdict = kWrong, .tryAgain = true}, // 7 13B
        {.verdict = kWrong, .tryAgain = true}, // 8 13C
        {.verdict = kWrong, .tryAgain = true}, // 9 14A
        {.verdict = kWrong, .tryAgain = true}, // 10 14B
        {.verdict = kRight},                   // 11 14C
        {.verdict = kWrong, .tryAgain = true}, // 12 15A
        {.verdict = kWrong, .tryAgain = true}, // 13 15B
        {.verdict = kRight},                   // 14 15C
        emptyAnswer(),
        otherLetter(),
    };

    bank[3].questions = {{
        {.text = s(u"16. Welche Ladungsträger werden durch Fotoemission in das Vakuum gebracht?"),
         .options = {s(u"Löcher"), s(u"Ionen"), s(u"Elektronen")}},
        {.text =
             s(u"17. Durch welchen Vorgang könnte man ein Vakuum für den Strom leitend machen?"),
         .options = {s(u"Glühemission"), s(u"Stoßionisation"), s(u"Erwärmung")}},
        {.text = s(u"18. Durch welchen Vorgang entstehen in einem Gas in einer bestimmten Zeit die "
                   u"meisten Ladungsträger?"),
         .options = {s(u"Glühemission"), s(u"Fotoemission"), s(u"Stoßionisation")}},
        {.text = s(u"19. Durch welchen Vorgang werden von der Katode einer Elektronenstrahlröhre "
                   u"(Fernsehbildröhre) Elektronen ausgesendet?"),
         .options = {s(u"Glühemission"), s(u"Fotoemission"), s(u"Stoßionisation")}},
        {.text = s(u"20. Welche Aufgabe hat der Wehneltzylinder einer Elektronenstrahlröhre "
                   u"(Fernsehbildröhre)?"),
         .options = {s(u"Aussenden von Elektronen"),
                     s(u"Hell- und Dunkelsteuerung des Bildschirms"), s(u"Erwärmung der Katode")}},
    }};
    bank[3].feedback = {
        {.verdict = kWrong, .tryAgain = true}, // 0 16A
        {.verdict = kWrong, .tryAgain = true}, // 1 16B
        {.verdict = kRight},                   // 2 16C
        {.verdict = kRight},                   // 3 17A
        {.verdict = kWrong, .tryAgain = true}, // 4 17B
        {.verdict = kWrong, .tryAgain = true}, // 5 17C
        {.verdict = kWrong, .tryAgain = true}, // 6 18A
        {.verdict = kWrong, .tryAgain = true}, // 7 18B
        {.verdict = kRight},                   // 8 18C
        {.verdict = kRight},                   // 9 19A
        {.verdict = kWrong,
         .body = s(u"Fotoemission tritt nur dann ein, wenn Licht auf bestimmte Stoffe fällt."),
         .tryAgain = true}, // 10 19B
        {.verdict = kWrong,
         .body = s(u"Stoßionisation tritt in Gasen auf. In der Fernsehbildröhre herrscht aber "
                   u"Vakuum."),
         .tryAgain = true}, // 11 19C
        {.verdict = kWrong,
         .body = s(u"Die Katode hat Elektronen auszusenden."),
         .tryAgain = true},  // 12 20A
        {.verdict = kRight}, // 13 20B
        {.verdict = kWrong,
         .body = s(u"Die Heizung der Bildröhre hat die Katode zu erwärmen."),
         .tryAgain = true}, // 14 20C
        emptyAnswer(),
        otherLetter(),
    };

    bank[4].questions = {{
        {.text = s(u"21. Welche Aufgabe haben die Ablenkplatten einer Elektronenstrahlröhre "
                   u"(Fernsehbildröhre)?"),
         .options =
             {s(u"Sie sollen Elektronen aussenden."),
              s(u"Sie sind für die Beschleunigung der Elektronen zuständig."),
              s(u"Sie sollen den Elektronenstrahl nacheinander auf jede Stelle des Bildschirms "
                u"lenken.")}},
        {.text = s(u"22. Welches Teil einer Elektronenstrahlröhre (Fernsehbildröhre) ist für die "
                   u"Beschleunigung der Elektronen zuständig?"),
         .options = {s(u"Katode"), s(u"Wehneltzylinder"), s(u"Anodenzylinder")}},
        {.text = s(u"23. Wie muss die Spannung am Wehneltzylinder einer Elektronenstrahlröhre "
                   u"sein, wenn auf dem Bildschirm ein dunkler Bildpunkt entstehen soll?"),
         .options = {s(u"stark negativ"), s(u"schwach negativ"), s(u"schwach positiv")}},
        {.text = s(u"24. Wie muss die Spannung am Wehneltzylinder einer Elektronenstrahlröhre "
                   u"sein, wenn auf dem Bildschirm ein sehr heller Bildpunkt entstehen soll?"),
         .options = {s(u"stark negativ"), s(u"schwach negativ"), s(u"schwach positiv")}},
        {.text = s(u"25. Wofür ist die Heizung einer Elektronenstrahlröhre zuständig?"),
         .options = {s(u"für die Heizung des Anodenzylinders"),
                     s(u"für die Heizung des Wehneltzylinders"), s(u"für die Heizung der Katode")}},
    }};
    bank[4].feedback = {
        {.verdict = kWrong,
         .body = s(u"Das wäre nur durch Glühemission oder Fotoemission möglich. Beide Vorgänge "
                   u"treten hier nicht auf."),
         .tryAgain = true}, // 0 21A
        {.body = s(u"Deine Antwort ist nicht grundsätzlich falsch, wenn du damit meinst, dass die "
                   u"Elektronen beschleunigt werden indem ihre sonst geradlinige Bahn gekrümmt "
                   u"wird. Die Antwort C ist auf alle Fälle richtig. (Bei der Punktbewertung wird "
                   u"dir deine Antwort als \"Richtig!\" gewertet.)")}, // 1 21B
        {.verdict = kRight},                                           // 2 21C
        {.verdict = kWrong,
         .body = s(u"Die Katode stellt die Elektronen nur bereit (Glühemission)."),
         .tryAgain = true}, // 3 22A
        {.verdict = kWrong,
         .body = s(u"Der Wehneltzylinder steuert die Bildhelligkeit."),
         .tryAgain = true},  // 4 22B
        {.verdict = kRight}, // 5 22C
        {.verdict = kRight}, // 6 23A
        {.verdict = kWrong,
         .body = s(u"Wenn die Spannung am Wehneltzylinder schwach negativ ist, entsteht ein "
                   u"Bildpunkt mit mittlerer Helligkeit."),
         .tryAgain = true}, // 7 23B
        {.verdict = kWrong,
         .body = s(u"Wenn die Spannung am Wehneltzylinder schwach positiv ist, entsteht ein heller "
                   u"Bildpunkt."),
         .tryAgain = true}, // 8 23C
        {.verdict = kWrong,
         .body = s(u"Wenn die Spannung am Wehneltzylinder stark negativ ist, entsteht ein dunkler "
                   u"Bildpunkt."),
         .tryAgain = true}, // 9 24A
        {.verdict = kWrong,
         .body = s(u"Wenn die Spannung am Wehneltzylinder schwach negativ ist, entsteht ein "
                   u"Bildpunkt mit mittlerer Helligkeit."),
         .tryAgain = true}, // 10 24B
        {.verdict = kRight,
         .body = s(u"Wenn die Spannung am Wehneltzylinder schwach positiv ist, entsteht ein heller "
                   u"Bildpunkt.")}, // 11 24C
        {.verdict = kWrong,
         .body = s(u"Der Anodenzylinder braucht nicht geheizt werden, weil dort keine Glühemission "
                   u"entstehen soll."),
         .tryAgain = true}, // 12 25A
        {.verdict = kWrong,
         .body = s(u"Der Wehneltzylinder braucht nicht geheizt werden, weil dort keine "
                   u"Glühemission entstehen soll."),
         .tryAgain = true},  // 13 25B
        {.verdict = kRight}, // 14 25C
        emptyAnswer(),
        otherLetter(),
    };

    bank[5].questions = {{
        {.text = s(u"26. Warum wird die Katode einer Elektronenstrahlröhre geheizt?"),
         .options =
             {s(u"damit aus der Katode Elektronen austreten können"),
              s(u"damit die ausgetretenen Elektronen beschleunigt werden"),
              s(u"damit die ausgetretenen Elektronen gebündelt werden, um auf dem Bildschirm "
                u"ein scharfes Bild zu erzeugen")}},
        {.text = s(u"27. Die Katode einer Elektronenstrahlröhre ist negativ geladen. Warum?"),
         .options = {s(u"Dadurch werden die Elektronen angezogen."),
                     s(u"Dadurch werden die Elektronen abgestoßen."),
                     s(u"Dadurch werden die Elektronen zu jeder Stelle des Bildschirms gelenkt.")}},
        {.text = s(u"28. Wie ändert sich der Widerstand eines Halbleiters, wenn er erwärmt wird?"),
         .options = {s(u"Der Widerstand wird größer."), s(u"Der Widerstand wird kleiner."),
                     s(u"Der Widerstand ändert sich nicht.")}},
        {.text = s(u"29. Vergleiche die Abhängigkeit des Widerstandes von der Temperatur bei "
                   u"Metallen und Halbleitern."),
         .options =
             {s(u"Bei beiden wird der Widerstand größer, wenn sie erwärmt werden."),
              s(u"Bei beiden wird der Widerstand kleiner, wenn sie erwärmt werden."),
              s(u"Bei Metallen wird der Widerstand größer und bei Halbleitern kleiner, wenn sie "
                u"erwärmt werden.")}},
        {.text = s(u"30. Welche Aufgabe hat eine Halbleiterdiode?"),
         .options = {s(u"Verstärken von Signalen"), s(u"Erzeugen von Wechselstrom"),
                     s(u"Gleichrichten von Wechselstrom")}},
    }};
    bank[5].feedback = {
        {.verdict = kRight}, // 0 26A
        {.verdict = kWrong,
         .body = s(u"Durch die Heizung können die Elektronen nicht beschleunigt werden."),
         .tryAgain = true}, // 1 26B
        {.verdict = kWrong,
         .body = s(u"Durch die Heizung können die Elektronen nicht bebündelt werden."),
         .tryAgain = true}, // 2 26C
        {.verdict = kWrong,
         .body = s(u"Das ist Unsinn. Elektronen sind ebenfalls negativ geladen. Überlege, was "
                   u"geschieht, wenn Katode und Elektronen negativ geladen sind."),
         .tryAgain = true},                    // 3 27A
        {.verdict = kRight},                   // 4 27B
        {.verdict = kWrong, .tryAgain = true}, // 5 27C
        {.verdict = kWrong, .tryAgain = true}, // 6 28A
        {.verdict = kRight},                   // 7 28B
        {.verdict = kWrong, .tryAgain = true}, // 8 28C
        {.verdict = kWrong,
         .body = s(u"Ein Hinweis: Metalle und Halbleiter verhalten sich bei Erwärmung "
                   u"unterschiedlich."),
         .tryAgain = true},                    // 9 29A, 29B
        {.verdict = kRight},                   // 10 29C
        {.verdict = kWrong, .tryAgain = true}, // 11 30A, 30B
        {.verdict = kRight},                   // 12 30C
        emptyAnswer(),
        otherLetter(),
    };

    bank[6].questions = {{
        {.text = s(u"31. Was ist die Ursache für die Eigenleitung in Halbleitern?"),
         .options = {s(u"Einbau von Fremdatomen mit einer größeren Anzahl von Außenelektronen"),
                     s(u"Einbau von Fremdatomen mit einer kleineren Anzahl von Außenelektronen"),
                     s(u"Wärme")}},
        {.text = s(u"32. Was ist die Ursache für n-Leitung in Halbleitern?"),
         .options = {s(u"Einbau von Fremdatomen mit einer größeren Anzahl von Außenelektronen"),
                     s(u"Einbau von Fremdatomen mit einer kleineren Anzahl von Außenelektronen"),
                     s(u"Wärme")}},
        {.text = s(u"33. Was ist die Ursache für p-Leitung in Halbleitern?"),
         .options = {s(u"Einbau von Fremdatomen mit einer größeren Anzahl von Außenelektronen"),
                     s(u"Einbau von Fremdatomen mit einer kleineren Anzahl von Außenelektronen"),
                     s(u"Wärme")}},
        {.text = s(u"34. Welche Ladungsträger sind in n-leitendem Halbleitermaterial in der "
                   u"Überzahl?"),
         .options = {s(u"freie Elektronen"), s(u"Löcher"),
                     s(u"Freie Elektronen und Löcher sind in gleicher Zahl vorhanden.")}},
        {.text = s(u"35. Welche Ladungsträger sind in p-leitendem Halbleitermaterial in der "
                   u"Überzahl?"),
         .options = {s(u"freie Elektronen"), s(u"Löcher"),
                     s(u"Freie Elektronen und Löcher sind in gleicher Zahl vorhanden.")}},
    }};
    bank[6].feedback = {
        {.verdict = kWrong, .tryAgain = true}, // 0 31A, 31B, 32B, 32C, 33A, 33C
        {.verdict = kRight},                   // 1 31C, 32A, 33B
        {.verdict = kRight},                   // 2 34A
        {.verdict = kWrong,
         .body = s(u"In n-leitendem Halbleitermaterial sind negative Ladungsträger in der "
                   u"Überzahl. Um welche Ladungsträger handelt es sich?"),
         .tryAgain = true}, // 3 34B, 34C
        {.verdict = kWrong,
         .body = s(u"In p-leitendem Halbleitermaterial sind positive Ladungsträger in der "
                   u"Überzahl. Um welche Ladungsträgerr handelt es sich?"),
         .tryAgain = true},  // 4 35A, 35C
        {.verdict = kRight}, // 5 35B
        emptyAnswer(),
        otherLetter(),
    };

    bank[7].questions = {{
        {.text = s(u"36. Fließt Strom durch die abgebildete Halbleiterdiode?"),
         .drawing = QStringLiteral(":/q36-diode-circuit.svg"),
         .drawingDescription = s(
             u"Schaltplan: Eine Gleichspannungsquelle, eine Halbleiterdiode und eine Lampe liegen "
             u"in einem Stromkreis hintereinander. Der Pluspol der Quelle ist mit der Seite der "
             u"Diode verbunden, an der der Strich (die Katode) steht; die Spitze des Dreiecks "
             u"zeigt zum Pluspol. Die andere Seite der Diode führt über die Lampe zum Minuspol."),
         .options = {s(u"ja"), s(u"ja, aber nur Wechselstrom"), s(u"nein")}},
        {.text = s(u"37. Halbleiterdioden bestehen meistens aus zwei verschiedenen Siliziumarten. "
                   u"Worin unterscheiden sich diese?"),
         .options = {s(u"Einmal sind Löcher in der Überzahl, einmal freie Elektronen."),
                     s(u"Sie unterscheiden sich in der Temperatur."),
                     s(u"Sie unterscheiden sich überhaupt nicht.")}},
        {.text = s(u"38. Was versteht man unter Gleichrichterwirkung einer Halbleiterdiode?"),
         .options =
             {s(u"Legt man an eine Halbleiterdiode eine Gleichspannung an, fließt der Strom "
                u"immer in der gleichen Richtung."),
              s(u"Bei einer bestimmten Polung sperrt die Diode."),
              s(u"Legt man an eine Halbleiterdiode Wechselspannung, fließt durch die Diode der "
                u"Strom nur in einer Richtung.")}},
        {.text = s(u"39. Welche Lampe leuchtet?"),
         .drawing = QStringLiteral(":/q39-lamps.svg"),
         .drawingDescription = s(
             u"Schaltplan: An einer Gleichspannungsquelle liegen zwei Zweige nebeneinander, jeder "
             u"mit einer Halbleiterdiode und einer Lampe. Im Zweig von Lampe 1 zeigt die Spitze "
             u"des Dreiecks der Diode zum Pluspol hin, der Strich (die Katode) liegt auf der "
             u"Seite des Pluspols. "
             u"Im Zweig von Lampe 2 zeigt die Spitze des Dreiecks vom Pluspol weg zur Lampe, der "
             u"Strich der Diode (die Katode) liegt auf der Seite der Lampe."),
         .options = {s(u"Lampe 1"), s(u"Lampe 2"), s(u"beide Lampen")}},
        {.text = s(u"40. Welche Ladungsträger leiten in Halbleitern den Strom?"),
         .options = {s(u"nur freie Elektronen"), s(u"freie Elektronen und Löcher"),
                     s(u"positive und negative Ionen")}},
    }};
    bank[7].feedback = {
        {.verdict = kWrong,
         .body = s(u"Die Halbleiterdiode ist in Sperrrichtung gepolt."),
         .tryAgain = true}, // 0 36A
        {.verdict = kWrong,
         .body = s(u"Durch eine Halbleiterdiode kann immer nur Gleichstrom in Durchlassrichtung "
                   u"fließen."),
         .tryAgain = true}, // 1 36B
        {.verdict = kRight,
         .body = s(u"Die Halbleiterdiode ist in Sperrichtung gepolt und lässt deshalb keinen Strom "
                   u"fließen.")},              // 2 36C
        {.verdict = kRight},                   // 3 37A, 39B, 40B
        {.verdict = kWrong, .tryAgain = true}, // 4 37B, 37C, 40A, 40C
        {.verdict = kWrong,
         .body = s(u"Es kann auch sein, dass kein Strom fließt. Das ist von der Polung der "
                   u"angelegten Spannung abhängig (Durchlassrichtung oder Sperrichtung)."),
         .tryAgain = true},                                                 // 5 38A
        {.verdict = kRight, .body = s(u"Auch die Antwort C ist richtig.")}, // 6 38B
        {.verdict = kRight, .body = s(u"Auch die Antwort B ist richtig.")}, // 7 38C
        {.verdict = kWrong,
         .body = s(u"Überlege noch einmal selbst:"),
         .tryAgain = true}, // 8 39A, 39C
        emptyAnswer(),
        otherLetter(),
    };

    bank[8].questions = {{
        {.text = s(u"41. Was zeigt das Bild?"),
         .drawing = QStringLiteral(":/q41-npn-transistor.svg"),
         .drawingDescription =
             s(u"Schaltzeichen in einem Kreis: links der Anschluss B an einem senkrechten Balken, "
               u"vom Balken schräg nach oben der Anschluss C, schräg nach unten der Anschluss E. "
               u"Am Anschluss E sitzt ein Pfeil, der vom Balken weg nach außen zeigt."),
         .options = {s(u"Das ist das Schaltzeichen eines npn-Transisistors."),
                     s(u"Das ist das Schaltzeichen eines pnp-Transistors."),
                     s(u"Das ist das Schaltzeichen einer Halbleiterdiode.")}},
        {.text = s(u"42. Vergleiche bei einem Transistor den Basisstrom I<sub>B</sub> mit dem "
                   u"Kollektorstrom I<sub>C</sub>."),
         .options = {s(u"I<sub>B</sub> > I<sub>C</sub>"), s(u"I<sub>B</sub> = I<sub>C</sub>"),
                     s(u"I<sub>B</sub> < I<sub>C</sub>")}},
        {.text = s(u"43. Wie groß ist bei einem Transistor der Kollektorstrom I<sub>C</sub>, wenn "
                   u"der Basisstrom I<sub>B</sub> = 0 ist?"),
         .options = {s(u"Der Kollektorstrom I<sub>C</sub> hat seinen größten Wert."),
                     s(u"Der Kollektorstrom I<sub>C</sub> ist ebenfalls 0."),
                     s(u"Der Basisstrom I<sub>B</sub> kann nicht 0 werden.")}},
        {.text = s(u"44. Welche der folgenden Aussagen ist richtig?"),
         .options = {s(u"Der Kollektorstrom I<sub>C</sub> steuert den Basisstrom I<sub>B</sub>."),
                     s(u"Der Basisstrom I<sub>B</sub> steuert den Kollektorstrom I<sub>C</sub>."),
                     s(u"Die Basis-Emitter-Spannung U<sub>BE</sub> steuert den Kollektorstrom "
                       u"I<sub>C</sub>.")}},
        {.text = s(u"45. Welches Gerät würdest du für folgende Aufgabe einsetzen: Ein schwaches "
                   u"Signal, was von einem Mikrofon kommt, soll verstärkt werden."),
         .options = {s(u"Braunsche Röhre (Elektronenstrahlröhre, Fernsehbildröhre)"),
                     s(u"Halbleiterdiode"), s(u"Transistor")}},
    }};
    bank[8].feedback = {
        {.verdict = kRight},                   // 0 41A, 42C, 43B, 44B, 45C
        {.verdict = kWrong, .tryAgain = true}, // 1 41B, 41C, 42A, 42B, 43A, 43C, 44A, 44C
        {.verdict = kWrong,
         .body = s(u"Eine Fernsehbildröhre hat eine andere Aufgabe."),
         .tryAgain = true}, // 2 45A
        {.verdict = kWrong,
         .body = s(u"Eine Halbleiterdiode kann zwar Wechselstrom gleichrichten, aber keine Signale "
                   u"verstärken."),
         .tryAgain = true}, // 3 45B
        emptyAnswer(),
        otherLetter(),
    };

    bank[9].questions = {{
        {.text = s(u"46. Welches Gerät würdest du für folgende Aufgabe einsetzen: Aus einem "
                   u"vorhandenen Wechselstrom soll Gleichstrom hergestellt werden."),
         .options = {s(u"Braunsche Röhre (Elektronenstrahlröhre, Fernsehbildröhre)"),
                     s(u"Halbleiterdiode"), s(u"Transistor")}},
        {.text =
             s(u"47. Wie berechnet man den Stromverstärkungsfaktor <i>β</i> eines Transistors?"),
         .options = {s(u"I<sub>B</sub> durch I<sub>C</sub>"),
                     s(u"I<sub>C</sub> durch I<sub>B</sub>"),
                     s(u"I<sub>E</sub> durch I<sub>C</sub>")}},
        {.text = s(u"48. Nenne von den drei vorhandenen Strömen am Transistor den größten."),
         .options = {s(u"Am größten ist der Emitterstrom I<sub>E</sub>."),
                     s(u"Am größten ist der Kollektorstrom I<sub>C</sub>."),
                     s(u"Am größten ist der Basisstrom I<sub>B</sub>.")}},
        {.text = s(u"49. Welche der folgenden Aussagen ist richtig?"),
         .options = {s(u"Transistoren können als Schalter und als Verstärker verwendet werden."),
                     s(u"Transistoren können nur als Schalter verwendet werden."),
                     s(u"Transistoren können nur als Verstärker verwendet werden.")}},
        {.text = s(u"50. Welche Aufgabe haben Transistoren in Speicherchips?"),
         .leadIn = s(u"Sie arbeiten als"),
         .options = {s(u"als Verstärker"), s(u"als Gleichrichter"), s(u"als Schalter")}},
    }};
    bank[9].feedback = {
        {.verdict = kWrong,
         .body = s(u"Eine Fernsehbildröhre hat eine andere Aufgabe."),
         .tryAgain = true},  // 0 46A
        {.verdict = kRight}, // 1 46B, 47B, 48A, 49A, 50C
        {.body = s(u"Ein Transistor wird in der Regel als Schalter oder als Verstärker eingesetzt. "
                   u"Es ist aber auch möglich, den Transistor zur Gleichrichtung von Wechselstrom "
                   u"einzusetzen. Insofern ist deine Antwort nicht ganz falsch. Die beste Antwort "
                   u"war: B Halbleiterdiode.")}, // 2 46C
        {.verdict = kWrong, .tryAgain = true},   // 3 47A, 47C, 48B, 48C, 49B, 49C, 50A, 50B
        emptyAnswer(),
        otherLetter(),
    };

    return bank;
}

QString escaped(const QString &text) {
    // Bank texts are plain text apart from the tags <sub>, <i> and <br>; everything else, the
    // comparison signs of "I<sub>B</sub> < I<sub>C</sub>" included, is shown as it stands.
    QString out = text.toHtmlEscaped();
    for (const char *tag : {"sub", "i"}) {
        out.replace(QStringLiteral("&lt;%1&gt;").arg(QLatin1String(tag)),
                    QStringLiteral("<%1>").arg(QLatin1String(tag)));
        out.replace(QStringLiteral("&lt;/%1&gt;").arg(QLatin1String(tag)),
                    QStringLiteral("</%1>").arg(QLatin1String(tag)));
    }
    out.replace(QStringLiteral("&lt;br&gt;"), QStringLiteral("<br>"));
    return out;
}

} // namespace

const PageBank &pageBank(int page) {
    static const std::array<PageBank, 10> bank = makeBank();
    Q_ASSERT(page >= 1 && page <= 10);
    return bank.at(static_cast<std::size_t>(page - 1));
}

QString questionHtml(const BankQuestion &q) {
    if (q.text.isEmpty())
        return {};
    return QStringLiteral("<div style=\"font-size:13pt; font-weight:600;\">%1</div>")
        .arg(escaped(q.text));
}

QString optionsHtml(const BankQuestion &q) {
    QString html = QStringLiteral("<div style=\"font-size:12pt;\">");
    if (!q.leadIn.isEmpty())
        html += QStringLiteral("<p style=\"margin-bottom:4px;\">%1</p>").arg(escaped(q.leadIn));
    html += QStringLiteral("<table cellspacing=\"0\" cellpadding=\"3\">");
    const std::array<QString, 3> letters = {QStringLiteral("A)"), QStringLiteral("B)"),
                                            QStringLiteral("C)")};
    for (std::size_t i = 0; i < letters.size(); ++i) {
        html += QStringLiteral("<tr><td valign=\"top\"><b>%1</b></td><td>%2</td></tr>")
                    .arg(letters[i], escaped(q.options[i]));
    }
    html += QStringLiteral("</table></div>");
    return html;
}

QString feedbackHtml(const BankFeedback &f, int page) {
    QStringList lines;
    if (!f.verdict.isEmpty()) {
        const bool right = f.verdict == kRight;
        lines << QStringLiteral(
                     "<span style=\"font-size:14pt; font-weight:700; color:%1;\">%2</span>")
                     .arg(Theme::cssColour(right ? Theme::kFeedbackRight : Theme::kWrong),
                          escaped(f.verdict));
    }
    if (!f.body.isEmpty())
        lines << escaped(f.body);
    if (f.tryAgain) {
        QString closing = QStringLiteral("Antworte noch einmal.");
        if (page <= 2) {
            closing += QStringLiteral(" (Schaltknopf „Aufgabe wiederholen“&nbsp;&nbsp;"
                                      "<img src=\":/button-repeat.svg\" width=\"26\" "
                                      "height=\"26\" style=\"vertical-align:middle\">&nbsp;)");
        }
        lines << closing;
    }
    return QStringLiteral("<div style=\"font-size:12pt;\">") + lines.join(QStringLiteral("<br>")) +
           QStringLiteral("</div>");
}
