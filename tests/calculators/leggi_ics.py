"""Reads calendar files with a library that is not the program's, and writes what it has found as JSON.

    leggi_ics.py FILE

An event is an object with the texts as the library unescapes them, days as "yyyy-mm-dd" and the days of its
alarms. A file that the library refuses, or an event that it reads with errors, ends with status 1.
"""

import json
import sys

from icalendar import Calendar


def giorni(allarme):
    scarto = allarme.decoded("trigger")
    assert scarto.seconds == 0
    return -scarto.days


def testo(evento, nome):
    return str(evento[nome]) if nome in evento else None


def main():
    with open(sys.argv[1], "rb") as ics:
        calendario = Calendar.from_ical(ics.read())
    eventi = []
    for evento in calendario.walk("VEVENT"):
        if evento.errors:
            sys.exit(repr(evento.errors))
        allarmi = evento.walk("VALARM")
        eventi.append(
            {
                "uid": testo(evento, "uid"),
                "titolo": testo(evento, "summary"),
                "descrizione": testo(evento, "description"),
                "giorno": evento.decoded("dtstart").isoformat(),
                "fine": evento.decoded("dtend").isoformat() if "dtend" in evento else None,
                "timbro": evento.decoded("dtstamp").isoformat(),
                "allarmi": [giorni(allarme) for allarme in allarmi],
                "azioni": sorted({testo(allarme, "action") for allarme in allarmi}),
                "annunci": [testo(allarme, "description") for allarme in allarmi],
            }
        )
    json.dump({"versione": str(calendario["version"]), "eventi": eventi}, sys.stdout)


main()
