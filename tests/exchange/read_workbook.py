"""Prints what a workbook holds, as a program that isn't ours reads it."""
import sys

import openpyxl

book = openpyxl.load_workbook(sys.argv[1])
print("sheets", *book.sheetnames)
for sheet in book:
    offers = [f"{rule.sqref} ={rule.formula1.lstrip('=')}" for rule in sheet.data_validations.dataValidation]
    print(sheet.title, "frozen", sheet.freeze_panes, "filter", sheet.auto_filter.ref, "offers", *offers)
    for row in sheet.iter_rows():
        for cell in row:
            if cell.value is not None:
                print(sheet.title, cell.coordinate, type(cell.value).__name__, repr(cell.value))
