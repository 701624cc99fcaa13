"""The table of paper_bench xlsx, written by openpyxl row by row without keeping them."""
import resource
import sys
import time

import openpyxl

begin = time.process_time()
book = openpyxl.Workbook(write_only=True)
sheet = book.create_sheet("Ведомость")
sheet.append([f"Графа {column + 1}" for column in range(12)])
for row in range(100_000):
    sheet.append([
        f"Скв-{row % 977 + column}" if column % 3 == 0 else (row * 7 + column) / 100 for column in range(12)
    ])
book.save(sys.argv[1])
memory = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024
print(f"{'openpyxl':12} {time.process_time() - begin:8.2f} s {memory:8.0f} MB")
