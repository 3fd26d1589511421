"""Writes a workbook as a program that isn't ours makes it."""
import datetime
import sys

import openpyxl

book = openpyxl.Workbook()
book.active.title = "Notes"
book.active["A1"] = "nothing of ours"
sheet = book.create_sheet("Lasten")
sheet.append([])
sheet.append(["Lastfall", "Bezeichnung", "Einwirkung", "DLZ"])
sheet.append([7, "Schnee", "S", 0.25])
sheet.append([8, "Größe", "W", datetime.date(2023, 3, 15)])
sheet.append([9, "rich text", None, 1e-07])
book.save(sys.argv[1])
