"""The counters of bench_routes, as CSV on standard input, as a table of Markdown."""

import csv
import sys

print("| route | records | ns a record | whole | streamed | ratio | peak MiB |")
print("| --- | --- | --- | --- | --- | --- | --- |")
header = None
for fields in csv.reader(sys.stdin):
    if fields and fields[0] == "name":
        header = fields
    elif header and len(fields) == len(header):
        row = dict(zip(header, fields))
        route, size = row["name"].split("/")[:2]
        ratios = [row[name] and f"{float(row[name]):.2f}" for name in ("whole", "streamed", "ratio")]
        numbers = [f"{float(row['record']):.0f}", *ratios, f"{float(row['peak']) / 1024:.1f}"]
        cells = [row["error_message"]] if row["error_occurred"] else numbers
        print("|", " | ".join([route, size, *cells]), "|")
