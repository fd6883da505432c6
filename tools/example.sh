#!/bin/sh
# The example with the korvex of the path: the fifteen script files of its definition, and an order that is stored and read
# back. The scripts land in out/scripts, the repository, the target database and the order beside them.
set -eu
cd "$(dirname "$0")/.."

orders() {
    command=$1
    shift
    korvex $command --repository out/orders.db --storage Orders "$@"
}

mkdir -p out
rm -f out/orders.db* out/target.db*
korvex repository new out/orders.db
korvex repository import out/orders.db examples/orders.json
orders script --dialect all --out out/scripts
for script in examples/scripts/*; do
    cmp "$script" "out/scripts/${script##*/}"
done

target="Provider=SQLite;Data Source=out/target.db"
orders "database create" --connection "$target"
key=$(orders save --connection "$target" examples/order.json)
orders load --connection "$target" --key "$key" >out/order.json
echo "order $key is saved in out/target.db and loaded into out/order.json"
